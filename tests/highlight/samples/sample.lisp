;;;; Points and a few ways to walk over them.
(defpackage :points
  (:use :cl)
  (:export #:make-point #:distance))
(in-package :points)

(defconstant +limit+ 100)
(defvar *origin* nil "Where everything starts, \"zero\".")

(defstruct point (x 0.0 :type float) (y 0.0))

(defclass shape ()
  ((name :initarg :name :accessor shape-name :initform "none")))

(defgeneric area (shape))
(defmethod area ((s shape)) 0)

(defun distance (a b &optional (scale 1) &key verbose)
  "The distance between A and B."
  (let* ((dx (- (point-x a) (point-x b)))
         (dy (- (point-y a) (point-y b))))
    (when verbose
      (format t "~a ~a~%" dx dy))
    (* scale (sqrt (+ (expt dx 2) (expt dy 2))))))

(defmacro while-not (test &body body)
  `(loop until ,test do ,@body))

#|( A block, set aside. )|#
(handler-case
    (dolist (p (list (make-point :x 1.5) (make-point :y #xFF)))
      (cond ((null p) (return nil))
            (t (push p *origin*))))
  (error (e) (princ e)))

(mapcar #'(lambda (n) (* n n)) '(1 2 3))
(char-upcase #\a) ; the end
