#!/usr/bin/env python3
# "def" and class are comment
from __future__ import annotations
import asyncio, re

LIMIT: int = 0x_FF - -12
NAME = "a \"quoted\" name \\"  # a comment with "quotes" and class

@dataclass(frozen=True)
class Word(object):
    """One word; the words class and import
    and this "quoted" one are string.
    """
    text: str
    count: float = 1.5e-3

    def __repr__(self) -> str:
        return f"{self.text!r}: {self.count:>8.2f}"

    @property
    # a comment before a method
    def long(self): return len(self.text) > 10 and not self.text.islower()


async def read(path, *args, **kwargs):
    """Reads a file, from the start."""
    global LIMIT
    query = """select *
        from words where text = 'None'"""
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
