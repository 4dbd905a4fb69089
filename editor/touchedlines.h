#pragma once

#include "editor/ccarets.h"

#include <QString>
#include <QVector>

class CTextLines;

// Lines from the first to the last.
struct SLineRange
{
    int nFirst;
    int nLast;
};

// The lines that a caret stands for.
SLineRange touchedLines(const CTextLines &lines, const SCaret &caret);

// The lines of all carets, in order; neighbours are one range.
QVector<SLineRange> touchedRanges(const CTextLines &lines, const CCarets &carets);

// Their texts with "\n" between them.
QString joinedText(const CTextLines &lines, const SLineRange &range);

// Which range each caret belongs to.
QVector<int> rangesOfCarets(const CTextLines &lines, const CCarets &carets,
                            const QVector<SLineRange> &lstRanges);
