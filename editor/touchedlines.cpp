#include "editor/touchedlines.h"

#include "editor/ctextlines.h"

#include <QStringList>

SLineRange touchedLines(const CTextLines &lines, const SCaret &caret)
{
    const int nFirst = lines.lineAt(caret.start());
    if (!caret.hasSelection())
        return {nFirst, nFirst};
    return {nFirst, lines.lineAt(caret.end() - 1)};
}

QVector<SLineRange> touchedRanges(const CTextLines &lines, const CCarets &carets)
{
    QVector<SLineRange> lst;
    for (const SCaret &caret : carets.list()) {
        const SLineRange range = touchedLines(lines, caret);
        if (!lst.isEmpty() && range.nFirst <= lst.constLast().nLast + 1)
            lst.last().nLast = qMax(lst.constLast().nLast, range.nLast);
        else
            lst.append(range);
    }
    return lst;
}

QString joinedText(const CTextLines &lines, const SLineRange &range)
{
    QStringList lst;
    for (int nLine = range.nFirst; nLine <= range.nLast; ++nLine)
        lst.append(lines.text(nLine));
    return lst.join(QLatin1Char('\n'));
}

QVector<int> rangesOfCarets(const CTextLines &lines, const CCarets &carets,
                            const QVector<SLineRange> &lstRanges)
{
    QVector<int> lst;
    int nRange = 0;
    for (const SCaret &caret : carets.list()) {
        const int nLine = lines.lineAt(caret.start());
        while (lstRanges.at(nRange).nLast < nLine)
            ++nRange;
        lst.append(nRange);
    }
    return lst;
}
