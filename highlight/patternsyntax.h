#pragma once

#include "highlight/symbols.h"

#include <QString>
#include <optional>
#include <vector>

// The syntax tree of a QRegExp pattern in its default syntax.
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
    SymbolSet set; // Symbol: the symbols that match
    std::vector<SPatternNode>
        children; // Of kinds that hold others. Repeats and lookaheads hold one.
    int nMin = 0; // Repeat
    int nMax = -1; // Repeat; -1: any number

    bool isAnchor() const { return kind >= LineStart && kind <= NoWordEdge; }
    // Whether this or a node inside is of that kind.
    bool contains(Kind wanted) const;
};

// Reads a pattern that is valid for QRegExp. Returns nothing for syntax that is left to QRegExp:
// back-references, character codes, characters beyond ASCII, and some rare spellings.
std::optional<SPatternNode> readPattern(const QString &strPattern, Qt::CaseSensitivity sensitivity);
