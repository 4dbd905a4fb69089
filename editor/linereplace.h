#pragma once

#include "editor/linesearch.h"

#include <QVector>

// The result of replacing every match of a line.
struct SLineReplacement
{
    int nMatches = 0; // Found, replaced or not.
    QString strText; // The new line; only valid when there are edits.
    // The replaced ranges in the order of the work. Each place is that in the line after the edits
    // before it.
    QVector<SLineMatch> lstEdits;
    bool bAtLineStart = false; // Searching up: the last match began in the line's first column.
};

// Replaces the first match and then those of further searches. Each search continues after the
// inserted text, or when searching up before it. A match that would not match without its
// surroundings is counted and skipped, as replacing a selection does. Time is linear in the line's
// length, but for regular expressions searched upwards.
//
// first is the first match in the line, and valid.
SLineReplacement replaceInLine(const CLineSearch &search, const QString &strLine,
                               const SLineMatch &first, const QString &strReplace);
