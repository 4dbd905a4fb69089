-- It's a "remark
{- a {- nested -} don't -}
module Main exposing (main)
text = """two "lines
it's"""
walk n = if n == 'x' then "a -- \"b\"" else "c" -- the 'end
size = 0x1F // 2
