#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

// A large text as the slices in which a document takes it. Reentrant, no widgets.

// What one slice holds at most. A line is never divided: its end is part of its slice, and a longer
// line is a slice of its own, because a document lays a line out anew each time it grows.
//
// Lines cost a document much more than characters; and after each slice its last screenful is laid
// out, for the scroll bars, which a slice of few lines would not be worth.
struct SSliceLimits
{
    int nCharacters = 0x100000; // UTF-16 units.
    int nLines = 4000;
};

// Gives the end of the slice that begins at nFrom: behind a line end (LF, CR, or both as one) or at
// the end of the text.
int sliceEnd(const QString &strText, int nFrom, const SSliceLimits &limits);

// The line that Qt lays out at the greatest cost.
struct SHeaviestLine
{
    int nLength = 0; // UTF-16 units without the line end.
    qint64 nWeight = 0; // Letters of a cheap script that would take as long.
};
SHeaviestLine heaviestLine(const QString &strText);

// A large text, looked at once.
struct STextLines
{
    int nLines = 1;
    SHeaviestLine heaviest;
    std::vector<int> lstSliceEnds; // Of the slices from some place on; see sliceEnd().
};
// nFrom: where a line and the first slice begins.
STextLines linesOf(const QString &strText, int nFrom, const SSliceLimits &limits);
// The same for a text that is nothing but these characters.
STextLines linesOf(const QByteArray &ascii, int nFrom, const SSliceLimits &limits);

// No line of so few units is as heavy as that.
qint64 unitsOfLightLines(qint64 nWeight);

// The text with a LF in each line that is heavier than nHeaviest, every nPiece units or a little
// before: not inside a surrogate pair, nor before a mark that belongs to the character in front.
QString inPieces(const QString &strText, int nPiece, qint64 nHeaviest);
