(* It's a "remark (* nested *) *)
fun walk (n : int) = if n > 0xF then "a (* b" else "don't\"" (* the 'end *)
val c = #"\""
val x' = 12
