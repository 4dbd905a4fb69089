#pragma once

#include "editor/ccarets.h"

#include <QString>
#include <QVector>

class CTextLines;

// A range of lines.
struct SLineRange
{
    int nFirst;
    int nLast;
};

// The lines that a caret touches.
SLineRange touchedLines(const CTextLines &lines, const SCaret &caret);

// The lines of all carets, in order; neighbours are one range.
QVector<SLineRange> touchedRanges(const CTextLines &lines, const CCarets &carets);

// Their texts with "\n" between them.
QString joinedText(const CTextLines &lines, const SLineRange &range);

// The range of each caret.
QVector<int> rangesOfCarets(const CTextLines &lines, const CCarets &carets,
                            const QVector<SLineRange> &lstRanges);
