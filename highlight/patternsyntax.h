#pragma once

#include "highlight/symbols.h"

#include <QString>
#include <optional>
#include <vector>

// The outline of a QRegExp pattern in its default syntax.
struct SPatternNode
{
    enum Kind {
        Nothing,
        Symbol,
        Sequence,
        Choice,
        Repeat,
        LineStart,
        LineEnd,
        WordEdge,
        NoWordEdge,
        Lookahead,
        NegativeLookahead
    };

    Kind kind = Nothing;
    SymbolSet set; // Symbol: what may stand there
    std::vector<SPatternNode>
        children; // of all kinds that hold others; one for repeats, lookaheads
    int nMin = 0; // Repeat
    int nMax = -1; // Repeat; -1: any number

    bool isAnchor() const { return kind >= LineStart && kind <= NoWordEdge; }
    // Whether it is or holds a node of that kind.
    bool contains(Kind wanted) const;
};

// Reads a pattern that QRegExp finds valid. Nothing is returned for what is read by QRegExp alone:
// back-references, character codes, characters beyond ASCII, and some rare spellings.
std::optional<SPatternNode> readPattern(const QString &strPattern, Qt::CaseSensitivity sensitivity);
