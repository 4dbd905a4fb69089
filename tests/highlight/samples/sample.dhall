-- It's a "remark
{- a {- nested -} don't -}
let text = "it's ${name ++ "x"} -- here" -- the 'end
let lines = ''
    raw "text" ${text}
    don't ''${stop
    ''
in { name = text, size = 12 }
