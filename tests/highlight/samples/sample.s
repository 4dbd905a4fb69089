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
    mov r1, r2 @ it's a remark
    .type main, @function
    cmpb $'a', %al
    ret
