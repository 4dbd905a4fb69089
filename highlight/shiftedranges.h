#pragma once

#include <QTextLayout>
#include <QVector>

// Where the ranges of a line stand once nRemoved characters at nAt have made way for nAdded others:
// a guess that holds until the rules have looked at the line again. One around the change grows
// with it, as does one of several characters up to the line's end. nLength is the line's new
// length.
QVector<QTextLayout::FormatRange> shiftedRanges(const QVector<QTextLayout::FormatRange> &lst,
                                                int nAt, int nRemoved, int nAdded, int nLength);
