;; A module that sums and stores.
(module $sample
  (type $binary (func (param i32 i32) (result i32)))
  (import "env" "print" (func $print (param i32)))
  (memory (export "memory") 1 2)
  (data (i32.const 0x10) "hello \"there\"\00")
  (table 2 funcref)
  (elem (i32.const 0) $add $sum)
  (global $count (mut i32) (i32.const -1))

  (; A block comment
     of two lines. ;)
  (func $add (type $binary)
    local.get 0
    local.get 1
    i32.add)

  (func $sum (export "sum") (param $n i32) (result i32)
    (local $i i32) (local $total i32)
    (block $done
      (loop $next
        (br_if $done (i32.ge_s (local.get $i) (local.get $n)))
        (local.set $total (call $add (local.get $total) (local.get $i)))
        (local.set $i (i32.add (local.get $i) (i32.const 1)))
        (br $next)))
    (if (result i32) (i32.eqz (local.get $total))
      (then (i32.const 0))
      (else
        (i32.store offset=4 align=4 (i32.const 0) (local.get $total))
        (call_indirect (type $binary) (i32.const 1) (i32.const 2) (i32.const 0)))))

  (func $vector (param f64) (result v128)
    (global.set $count (i32.const 42))
    (f64.mul (local.get 0) (f64.const 1.5e3))
    drop
    (i32x4.splat (memory.size))
    return)
  (start $main)
  (func $main (call $print (i32.const 7)) nop unreachable))
