#pragma once

#include "editor/ccarets.h"

#include <QString>

class CTextLines;

// A rectangle of text between two corners. Columns are those of a fixed font: a tab reaches to the
// next multiple of four, a wide character takes two.
struct SCaretBlock
{
    int nAnchorLine = 0;
    int nAnchorColumn = 0;
    int nLine = 0;
    int nColumn = 0;
};

int shownColumn(const QString &strLine, int nPlace);
// The place at the column, or the nearest one before it. A column after the line's end gives the
// line's end.
int placeAtColumn(const QString &strLine, int nColumn);

// One caret for each line that reaches the rectangle, and for the lines of its corners. The main
// one is in the line of the corner that moves.
CCarets caretsOfBlock(const CTextLines &lines, const SCaretBlock &block);

// The most columns that a line of the block has.
int widestColumn(const CTextLines &lines, const SCaretBlock &block);

// The block between a caret's two ends.
SCaretBlock blockOfCaret(const CTextLines &lines, const SCaret &caret);

// Adds a caret one line below the last one, in its column; with bUp, one line above the first. Adds
// nothing when there is no such line.
CCarets caretsWithNext(const CTextLines &lines, const CCarets &carets, bool bUp);
