#include "editor/linecommands.h"

#include "editor/ccarets.h"
#include "editor/ctextlines.h"
#include "editor/touchedlines.h"

#include <QStringList>

#include <algorithm>

namespace {

QVector<SLineRange> rangesToSort(const CTextLines &lines, const CCarets &carets)
{
    if (!carets.isSingle() || carets.main().hasSelection())
        return touchedRanges(lines, carets);
    const int nLast = lines.lastLine();
    return {{0, nLast > 0 && lines.length(nLast) == 0 ? nLast - 1 : nLast}};
}

// Replaces only the part of the range that differs from the sorted one.
void addSorted(const CTextLines &lines, const SLineRange &range, TextEdits *pEdits)
{
    QStringList lstBefore;
    for (int nLine = range.nFirst; nLine <= range.nLast; ++nLine)
        lstBefore.append(lines.text(nLine));
    QStringList lstAfter = lstBefore;
    std::stable_sort(lstAfter.begin(), lstAfter.end());
    int nFirst = 0;
    int nLast = lstAfter.size() - 1;
    while (nFirst <= nLast && lstBefore.at(nFirst) == lstAfter.at(nFirst))
        ++nFirst;
    while (nLast >= nFirst && lstBefore.at(nLast) == lstAfter.at(nLast))
        --nLast;
    if (nFirst > nLast)
        return;
    const int nStart = lines.start(range.nFirst + nFirst);
    const int nEnd = lines.end(range.nFirst + nLast);
    const QString strAfter = lstAfter.mid(nFirst, nLast - nFirst + 1).join(QLatin1Char('\n'));
    pEdits->append({nStart, nEnd - nStart, strAfter});
}

} // namespace

SCommand lineSort(const CTextLines &lines, const CCarets &carets)
{
    SCommand command {{}, carets}; // The same places exist in the sorted text.
    const QVector<SLineRange> lstRanges = rangesToSort(lines, carets);
    for (const SLineRange &range : lstRanges)
        addSorted(lines, range, &command.lstEdits);
    return command;
}
