#pragma once

#include "editor/linesearch.h"

#include <QVector>

// What replacing every match of a line did.
struct SLineReplacement
{
    int nMatches = 0; // Found, replaced or not.
    QString strText; // The line afterwards; meaningful when there are edits.
    // The replaced ranges in the order of the work, each where it stood in the line as the edits
    // before it had left it.
    QVector<SLineMatch> lstEdits;
    bool bAtLineStart = false; // Searching up: the last match began in the line's first column.
};

// Replaces the first match and then what one search after another finds, each going on where the
// one before ended: behind the inserted text, or searching up before it. A match that would not
// match without its surroundings is counted and passed over, as replacing a selection does. Time is
// linear in the line's length, but for regular expressions searched upwards.
//
// first is what the search finds in the line, and valid.
SLineReplacement replaceInLine(const CLineSearch &search, const QString &strLine,
                               const SLineMatch &first, const QString &strReplace);
