{-# LANGUAGE ScopedTypeVariables, LambdaCase #-}
-- | A queue made of two lists.
module Queue (Queue, empty, push, pop) where

import qualified Data.Map as Map
import Data.Maybe (fromMaybe)

{- A block comment: its first line would be a line comment
   in a language with fewer braces. -}
data Queue a = Queue [a] [a]
  deriving (Eq, Show)

newtype Age = Age { years :: Int }

class Container f where
  insert :: a -> f a -> f a
  toL    :: f a -> [a]

instance Container Queue where
  insert = push
  toL (Queue f b) = f ++ reverse b

empty :: Queue a
empty = Queue [] []

push :: a -> Queue a -> Queue a
push x (Queue f b) = Queue f (x : b)

pop :: Queue a -> Maybe (a, Queue a)
pop = \case
  Queue [] []      -> Nothing
  Queue (x : f) b  -> Just (x, Queue f b)
  Queue [] b       -> pop (Queue (reverse b) [])

main :: IO ()
main = do
  let q = foldr push empty [1, 2, 0x1F :: Int]
      ages = Map.fromList [("Ann", Age 42), ("Bob \"B\"", Age 7)]
  case pop q of
    Nothing -> putStrLn "empty"
    Just (x, _) | x > 1     -> print (x `div` 2)
                | otherwise -> return ()
  mapM_ (print . years) (Map.elems ages) -- the end
