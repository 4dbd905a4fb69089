; It's a "remark
target triple = "x86_64-linux-gnu" ; don't
@text = private constant [6 x i8] c"a ;\22 b\00", align 1
define i32 @main(i32 %n) #0 {
entry:
  %sum = add nsw i32 %n, 12 ; the 'end
  ret i32 %sum
}
!0 = !{!"it's"}
