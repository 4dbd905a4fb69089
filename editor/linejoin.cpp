#include "editor/linecommands.h"

#include "editor/ccarets.h"
#include "editor/ctextlines.h"
#include "editor/touchedlines.h"

namespace {

QVector<SLineRange> rangesToJoin(const CTextLines &lines, const CCarets &carets)
{
    QVector<SLineRange> lst;
    for (const SCaret &caret : carets.list()) {
        SLineRange range = touchedLines(lines, caret);
        if (range.nFirst == range.nLast)
            range.nLast = qMin(range.nLast + 1, lines.lastLine());
        if (!lst.isEmpty() && range.nFirst <= lst.constLast().nLast)
            lst.last().nLast = qMax(lst.constLast().nLast, range.nLast);
        else if (range.nFirst < range.nLast)
            lst.append(range);
    }
    return lst;
}

bool isBlankOrTab(QChar c)
{
    return c == QLatin1Char(' ') || c == QLatin1Char('\t');
}

// Each run of blanks and line ends with a line end in it is a joint.
void addJoints(const QString &strText, int nAt, TextEdits *pEdits)
{
    for (int n = 0; n < strText.length();) {
        int nEnd = n;
        bool bJoint = false;
        while (nEnd < strText.length()
               && (isBlankOrTab(strText.at(nEnd)) || strText.at(nEnd) == QLatin1Char('\n'))) {
            bJoint |= strText.at(nEnd) == QLatin1Char('\n');
            ++nEnd;
        }
        if (bJoint) {
            const bool bBetween = n > 0 && nEnd < strText.length();
            pEdits->append({nAt + n, nEnd - n, bBetween ? QStringLiteral(" ") : QString()});
        }
        n = qMax(nEnd, n + 1);
    }
}

} // namespace

SCommand lineJoin(const CTextLines &lines, const CCarets &carets)
{
    SCommand command {{}, carets};
    const QVector<SLineRange> lstRanges = rangesToJoin(lines, carets);
    for (const SLineRange &range : lstRanges)
        addJoints(joinedText(lines, range), lines.start(range.nFirst), &command.lstEdits);
    command.carets = CPositionMap(command.lstEdits).map(carets);
    return command;
}
