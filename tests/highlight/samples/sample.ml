(* A small evaluator. *)
open Printf

type expr =
  | Num of float
  | Var of string
  | Add of expr * expr
  | Let of { name : string; value : expr; body : expr }

exception Unbound of string

module Env = Map.Make (String)

let rec eval env = function
  | Num n -> n
  | Var v -> (match Env.find_opt v env with
      | Some x -> x
      | None -> raise (Unbound v))
  | Add (a, b) -> eval env a +. eval env b
  | Let { name; value; body } ->
    eval (Env.add name (eval env value) env) body

and twice x = 2. *. x

let id (x : 'a) : 'a = x
let greet ?(name = "you") ~times () =
  for i = 1 to times do
    printf "%d: hello \"%s\"\n" i name
  done

let () =
  let e = Let { name = "x"; value = Num 1.5e2; body = Add (Var "x", Num 2.) } in
  try printf "%g\n" (twice (eval Env.empty e)) with
  | Unbound v -> eprintf "unbound %s\n" v
  | Not_found | Failure _ -> exit 1

let[@inline] swap (a, b) = b, a
let tags = [ `Red; `Green ] |> List.rev (* to the end
  of this comment *)
