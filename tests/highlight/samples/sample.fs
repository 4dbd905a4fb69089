// Shapes and their areas.
module Shapes

open System
#if DEBUG
#nowarn "40"
#endif

/// A plain union.
[<RequireQualifiedAccess>]
type Shape =
    | Circle of radius: float
    | Rect of float * float

type Counter(start: int) =
    let mutable n = start
    member this.Next() =
        n <- n + 1
        n
    interface IDisposable with
        member _.Dispose() = ()

let inline square x = x * x

let area shape =
    match shape with
    | Shape.Circle r when r > 0.0 -> Math.PI * square r
    | Shape.Rect (a, b) -> a * b
    | _ -> nan

let rec fact n = if n <= 1I then 1I else n * fact (n - 1I)

let names (xs: 'T list) =
    xs |> List.map (fun x -> x.ToString()) |> String.concat ", "

(* A block comment stays in its own words. *)
let work =
    async {
        let! data = async { return [| 1; 0xFF; 3 |] }
        use file = new System.IO.StringWriter()
        for d in data do
            do! Async.Sleep 10
            printfn "%d %s \"quoted\"" d ($"{d:X}")
        return Some data.Length
    }
let ``a name with blanks`` = Ok 1 // end
