; Print a greeting and count the letters of a line.
%define STDOUT 1
%macro print 2
        mov     rsi, %1
        mov     rdx, %2
        call    write
%endmacro

        default rel
        global  _start
        extern  puts

section .data
greeting:       db      "Hello, world", 10, 0
length          equ     $ - greeting
table:          times 16 dw 0FFh
mask            dq      0x8000_0000, 1010b

section .bss
buffer:         resb    64

section .text
_start:
        print   greeting, length
        xor     eax, eax
        lea     rdi, [buffer + rax*8 + 4]
.next:  cmp     byte [rdi], 0
        je      .done
        inc     rdi
        jmp     short .next
.done:  movaps  xmm0, [rsp+16]
        mov     eax, 60
        syscall

/* The other dialect,
   for another assembler. */
        .globl  write
        .type   write, @function
write:  movq    $1, %rax
        pushq   %rbp
        ldr     x0, [sp, 8]
        addi    a0, t1, -12
        ret
