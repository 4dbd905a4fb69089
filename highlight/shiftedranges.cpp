#include "highlight/shiftedranges.h"

QVector<QTextLayout::FormatRange> shiftedRanges(const QVector<QTextLayout::FormatRange> &lst,
                                                int nAt, int nRemoved, int nAdded, int nLength)
{
    const int nMore = nAdded - nRemoved;
    const int nOldEnd = nAt + nRemoved;
    const bool bAtLineEnd = nAt + nAdded == nLength;
    QVector<QTextLayout::FormatRange> lstShifted;
    lstShifted.reserve(lst.size());
    for (QTextLayout::FormatRange range : lst) {
        const int nEnd = range.start + range.length;
        const bool bGrows = nEnd > nOldEnd || (nEnd == nOldEnd && bAtLineEnd && range.length > 1);
        const int nNewStart = range.start < nAt ? range.start : qMax(range.start, nOldEnd) + nMore;
        const int nNewEnd = nEnd <= nAt && !bGrows ? nEnd : bGrows ? nEnd + nMore : nAt;
        range.start = nNewStart;
        range.length = nNewEnd - nNewStart;
        if (range.length > 0)
            lstShifted.append(range);
    }
    return lstShifted;
}
