#!/usr/bin/env rdmd
// Words and how often they come.
module sample;

import std.stdio : writeln, writefln;
import std.algorithm, std.range;

/// What a word knows.
struct Word
{
    string text;
    size_t count = 0x1;
    invariant { assert(text.length > 0, "empty \"word\""); }
}

interface Store { void add(string text) @safe; }

class Counter : Store
{
    private Word[string] words;
    immutable int limit;

    this(int limit) pure nothrow { this.limit = limit; }
    ~this() {}

    override void add(string text) @safe
    in (text !is null)
    {
        if (auto w = text in words)
            ++w.count;
        else
            words[text] = Word(text);
    }

    @property auto sorted() const => words.byValue.array.sort!"a.count > b.count";
}

/* A template
   with a constraint. */
T largest(T)(T[] list...) if (is(T : long))
{
    return list.fold!((a, b) => a > b ? a : b)(T.min);
}

version (Windows) enum eol = "\r\n"; else enum eol = `\n`;
debug (extra) pragma(msg, "extra");
mixin template Tag() { int tag; }

void main(string[] args)
{
    scope (exit) writeln("done");
    auto c = new Counter(0b1010);
    foreach (i, arg; args[1 .. $])
        c.add(arg);
    try
        writefln("%s of %d", largest(1, 2, 3), 1.5e3);
    catch (Exception e)
        throw e;
    static foreach (n; [1, 2]) { static assert(n < 3); }
}

unittest { assert(largest(1, 2) == 2); }
