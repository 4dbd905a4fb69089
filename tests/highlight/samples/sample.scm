; Lists, streams and syntax.
(define-library (sample lists)
  (export flatten (rename compact squeeze))
  (import (scheme base) (scheme write))
  (begin

    (define pi 3.14159)

    (define (flatten tree)
      (cond ((null? tree) '())
            ((pair? tree)
             (append (flatten (car tree)) (flatten (cdr tree))))
            (else (list tree))))

    (define-record-type <point>
      (make-point x y)
      point?
      (x point-x set-point-x!)
      (y point-y))

    (define-syntax swap!
      (syntax-rules ()
        ((_ a b) (let ((tmp a)) (set! a b) (set! b tmp)))))

    (define (compact . rest)
      (let loop ((items rest) (out '()))
        (if (null? items)
            (reverse out)
            (loop (cdr items)
                  (if (car items) (cons (car items) out) out)))))))

(let*-values (((q r) (floor/ 17 5))
              ((text) (number->string q 16)))
  (display (string-append "q is \"" text "\""))
  (newline))

#!
It's a "remark" in Guile
!#
#;(display "left out")
(define flags (list #t #f #\space #\a #xFF 1.5e3))
(for-each (lambda (n) (when (even? n) (write n))) '(1 2 3 4))
`(a ,(+ 1 2) ,@(map square '(3 4)))
