# A small store of words.
import std/[strutils, tables]
from os import paramStr, `/`

type
  Kind* = enum
    kShort = "short", kLong
  Word* = object
    text*: string
    count: int = 0x10
  Store = ref object of RootObj
    words: Table[string, Word]

const limit = 1_000'i32

## Documented like this.
proc add*(s: Store; text: string): int {.discardable, raises: [].} =
  if text.len == 0 or text notin s.words:
    s.words[text] = Word(text: text)
  inc s.words.mgetOrPut(text, Word()).count
  result = s.words.len

#[ The first line of a block is coloured,
   the next is not. ]#
iterator pairsOf(s: Store): (string, int) =
  for key, word in s.words:
    yield (key, word.count)

template twice(body: untyped) =
  body
  body

func `+`(a, b: Word): Word = Word(text: a.text & b.text)

when isMainModule:
  let store = Store()
  var total = 0.5e1
  for line in "a b \"c\"".split(' '):
    case line
    of "a", "b": discard store.add(line)
    elif line == "x": break
    else: twice: store.add line
  try:
    echo &"{total} words", $store.words.len
    doAssert store.add("z") > 0 and not false
  except ValueError as e:
    raise newException(IOError, e.msg)
  finally:
    echo store.words.len div 2, nil == cast[pointer](0)
