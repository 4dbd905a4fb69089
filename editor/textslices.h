#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

// Divides a large text into the slices that a document takes one by one. Reentrant, no widgets.

// The limits of a slice. A line is never divided, and its end is part of its slice; a longer line
// is a slice of its own. The reason is that a document lays a line out again each time it grows.
//
// Lines cost a document much more than characters. After each slice its last screenful is laid out
// for the scroll bars, so slices of few lines would not pay.
struct SSliceLimits
{
    int nCharacters = 0x100000; // UTF-16 units.
    int nLines = 4000;
};

// Gives the end of the slice that begins at nFrom: after a line end (LF, CR, or both as one) or at
// the end of the text.
int sliceEnd(const QString &strText, int nFrom, const SSliceLimits &limits);

// The line that Qt lays out at the greatest cost.
struct SHeaviestLine
{
    int nLength = 0; // UTF-16 units without the line end.
    qint64 nWeight = 0; // The number of letters of a cheap script that would take as long.
};
SHeaviestLine heaviestLine(const QString &strText);

// What one look at a large text tells.
struct STextLines
{
    int nLines = 1;
    SHeaviestLine heaviest;
    std::vector<int> lstSliceEnds; // See sliceEnd().
};
// The first slice begins at nFrom, where a line begins. Lines before it count, too.
STextLines linesOf(const QString &strText, int nFrom, const SSliceLimits &limits);
// The same for ASCII.
STextLines linesOf(const QByteArray &ascii, int nFrom, const SSliceLimits &limits);

// Gives the length, in UTF-16 units, up to which no line is heavier than nWeight.
qint64 unitsOfLightLines(qint64 nWeight);

// Divides each line that is heavier than nHeaviest by a LF after nPiece units or slightly fewer. It
// never divides a surrogate pair, nor a character from its marks.
QString inPieces(const QString &strText, int nPiece, qint64 nHeaviest);
