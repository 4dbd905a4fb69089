#pragma once

#include <QtGlobal>
#include <functional>
#include <vector>

// What the highlighting rules say about one line of text.

enum class HighlightRole : quint8 { Keyword, Comment, String, Number, Operator };

struct SHighlightRange
{
    int nStart; // UTF-16 units from the start of the line.
    int nLength;
    HighlightRole role;
};

// Bits of the state at the end of a line, with which the next line starts. Before the first line it
// is -1. The numbers are those of the blocks' user states.
struct SHighlightState
{
    enum Bit {
        SingleLineComment = 1,
        MultiLineComment = 2,
        DoubleQuoted = 4,
        SingleQuoted = 8,
        InsideTag = 16,
        Continued = 32,
    };
};

struct SHighlightLine
{
    std::vector<SHighlightRange>
        lstRanges; // In drawing order: a later range covers an earlier one.
    int nState = 0;
};

// Called now and then during long work; true aborts the work. May be empty.
using AbortCheck = std::function<bool()>;
