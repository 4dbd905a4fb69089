#pragma once

#include <QTextLayout>
#include <QVector>

// Moves the ranges of a line after nRemoved characters at nAt were replaced by nAdded others. This
// is a guess until the rules have read the line again. A range around the change grows with it, and
// so does a range of several characters that reaches the line's end. nLength is the line's new
// length.
QVector<QTextLayout::FormatRange> shiftedRanges(const QVector<QTextLayout::FormatRange> &lst,
                                                int nAt, int nRemoved, int nAdded, int nLength);
