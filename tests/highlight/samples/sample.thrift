// It's a "remark
/* don't
   open */
# a third "kind
include "it's.thrift"
struct Walk {
  1: required string name = "a // b", // the 'end
  2: optional i32 size = 0x1F,
  3: string other = 'c"d'
}
