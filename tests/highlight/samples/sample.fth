\ It's a "remark
( don't
  open )
: walk ( n -- ) dup 0 > if ." it's ( here" drop else s" x \ y" type then ; \ the "end
variable count
hex 1F count !
