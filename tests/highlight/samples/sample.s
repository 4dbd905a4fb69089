#include "asm.h"
# It's a "remark
/* don't
   open */
    .text
    .globl main
main:
    movq $0x1F, %rax   # the 'end
    ldr x0, [sp, #16]  // it's
    .asciz "a # b \" c"
    cmpb $'a', %al
    ret
