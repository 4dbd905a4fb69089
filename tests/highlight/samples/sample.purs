-- It's a "remark
{- don't
   stop -}
module Main where
text = """two "lines
it's"""
walk n' = if n' == 'x' then "a -- b" else "c" -- the 'end
