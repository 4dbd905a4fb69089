#!/usr/bin/env python3
"""Counts words; the word class in this text is string."""
from __future__ import annotations
import asyncio, re

LIMIT: int = 0x_FF - -12
NAME = "a \"quoted\" name \\"  # a comment with "quotes" and class

'''A block in triple apostrophes:
def nothing(): return "string" # all of it is one
'''

@dataclass(frozen=True)
class Word(object):
    text: str
    count: float = 1.5e-3

    def __repr__(self) -> str:
        return f"{self.text!r}: {self.count:>8.2f}"

    @property
    def long(self): return len(self.text) > 10 and not self.text.islower()


async def read(path, *args, **kwargs):
    global LIMIT
    async with open(path, encoding="utf-8") as file:
        for number, line in enumerate(file):
            match line.split():
                case [] | [""]: continue
                case [first, *rest] if first is not None: yield Word(first)
                case _: pass
    try:
        assert LIMIT >= 0, 'below zero'
    except (ValueError, KeyError) as error:
        raise SystemExit(1) from error
    finally:
        del path

if __name__ == "__main__":
    squares = {n: n ** 2 for n in range(10) if n % 2 == 0}
    print(sorted(squares, key=lambda n: -n), True, None, sep="\t")
