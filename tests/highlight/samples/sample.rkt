#lang racket
; It's a "remark
#| a #| nested |# block's |#
(define (walk n [text "don't ; open"])
  (define c #\") ; the "end
  (displayln (string-append text "\"x\""))
  #;(not 'read)
  (if (> n #x1F) 'none `(a ,n)))
