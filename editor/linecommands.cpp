#include "editor/linecommands.h"

#include "editor/ccarets.h"
#include "editor/ctextlines.h"
#include "editor/indentation.h"
#include "editor/touchedlines.h"

namespace {

// Moves the carets of each range by the range's number, within a text of that length.
CCarets shifted(const CTextLines &lines, const CCarets &carets, const QVector<SLineRange> &ranges,
                const QVector<int> &lstShifts, int nLength)
{
    const QVector<int> lstRanges = rangesOfCarets(lines, carets, ranges);
    QVector<SCaret> lst;
    for (int n = 0; n < carets.count(); ++n) {
        const SCaret &caret = carets.list().at(n);
        const int nShift = lstShifts.at(lstRanges.at(n));
        lst.append(
            {qMin(caret.nAnchor + nShift, nLength), qMin(caret.nPosition + nShift, nLength)});
    }
    return {lst, carets.mainIndex()};
}

int textLength(const CTextLines &lines)
{
    return lines.end(lines.lastLine());
}

SCommand nothing(const CCarets &carets)
{
    return {{}, carets};
}

// Moves a line from one side of the range to the other.
void addMove(const CTextLines &lines, const SLineRange &range, bool bUp, TextEdits *pEdits)
{
    const int nMoved = bUp ? range.nFirst - 1 : range.nLast + 1;
    const QString strMoved = lines.text(nMoved);
    if (bUp) {
        pEdits->append({lines.start(nMoved), strMoved.length() + 1, QString()});
        pEdits->append({lines.end(range.nLast), 0, QLatin1Char('\n') + strMoved});
    } else {
        pEdits->append({lines.start(range.nFirst), 0, strMoved + QLatin1Char('\n')});
        pEdits->append({lines.end(range.nLast), strMoved.length() + 1, QString()});
    }
}

SCommand lineMove(const CTextLines &lines, const CCarets &carets, bool bUp)
{
    const QVector<SLineRange> lstRanges = touchedRanges(lines, carets);
    SCommand command = nothing(carets);
    QVector<int> lstShifts;
    for (const SLineRange &range : lstRanges) {
        const bool bAtEdge = bUp ? range.nFirst == 0 : range.nLast == lines.lastLine();
        if (bAtEdge) {
            lstShifts.append(0);
            continue;
        }
        const int nBy = lines.length(bUp ? range.nFirst - 1 : range.nLast + 1) + 1;
        lstShifts.append(bUp ? -nBy : nBy);
        addMove(lines, range, bUp, &command.lstEdits);
    }
    if (!command.isNothing())
        command.carets = shifted(lines, carets, lstRanges, lstShifts, textLength(lines));
    return command;
}

// Lines are removed with the line end of one of their neighbours.
STextEdit lineRemoval(const CTextLines &lines, const SLineRange &range)
{
    const int nStart = lines.start(range.nFirst);
    if (range.nLast < lines.lastLine())
        return {nStart, lines.start(range.nLast + 1) - nStart, QString()};
    const int nFrom = qMax(nStart - 1, 0);
    return {nFrom, lines.end(range.nLast) - nFrom, QString()};
}

// Gives the place of a caret in that column after the lines are removed.
int placeBesideRemoved(const CTextLines &lines, const SLineRange &range, int nColumn)
{
    int nLine = range.nLast + 1;
    if (nLine > lines.lastLine())
        nLine = range.nFirst - 1;
    if (nLine < 0)
        return 0;
    return lines.start(nLine) + qMin(nColumn, lines.length(nLine));
}

SCommand lineNew(const CTextLines &lines, const CCarets &carets, bool bBelow)
{
    SCommand command;
    QVector<SCaret> lst;
    int nGrown = 0;
    for (const SCaret &caret : carets.list()) {
        const SLineRange range = touchedLines(lines, caret);
        const int nLine = bBelow ? range.nLast : range.nFirst;
        const QString strBlanks = leadingBlanks(lines.text(nLine));
        const int nAt = bBelow ? lines.end(nLine) : lines.start(nLine);
        const QString strNew = bBelow ? QString(QLatin1Char('\n') + strBlanks)
                                      : QString(strBlanks + QLatin1Char('\n'));
        const int nPlace = nAt + nGrown + strNew.length() - (bBelow ? 0 : 1);
        lst.append({nPlace, nPlace});
        nGrown += strNew.length();
        // Two carets in one line ask for two new lines at the same place.
        if (!command.lstEdits.isEmpty() && command.lstEdits.constLast().nStart == nAt)
            command.lstEdits.last().strText += strNew;
        else
            command.lstEdits.append({nAt, 0, strNew});
    }
    command.carets = CCarets(lst, carets.mainIndex());
    return command;
}

} // namespace

SCommand lineMoveUp(const CTextLines &lines, const CCarets &carets)
{
    return lineMove(lines, carets, true);
}

SCommand lineMoveDown(const CTextLines &lines, const CCarets &carets)
{
    return lineMove(lines, carets, false);
}

SCommand lineDuplicate(const CTextLines &lines, const CCarets &carets)
{
    const QVector<SLineRange> lstRanges = touchedRanges(lines, carets);
    SCommand command;
    QVector<int> lstShifts;
    int nGrown = 0;
    for (const SLineRange &range : lstRanges) {
        const QString strCopy = QLatin1Char('\n') + joinedText(lines, range);
        command.lstEdits.append({lines.end(range.nLast), 0, strCopy});
        nGrown += strCopy.length();
        lstShifts.append(nGrown);
    }
    command.carets = shifted(lines, carets, lstRanges, lstShifts, textLength(lines) + nGrown);
    return command;
}

SCommand lineDelete(const CTextLines &lines, const CCarets &carets)
{
    const QVector<SLineRange> lstRanges = touchedRanges(lines, carets);
    SCommand command = nothing(carets);
    for (const SLineRange &range : lstRanges) {
        const STextEdit edit = lineRemoval(lines, range);
        if (edit.nLength > 0)
            command.lstEdits.append(edit);
    }
    if (command.isNothing())
        return command;
    const CPositionMap map(command.lstEdits);
    const QVector<int> lstOfCarets = rangesOfCarets(lines, carets, lstRanges);
    QVector<SCaret> lst;
    for (int n = 0; n < carets.count(); ++n) {
        const int nColumn = lines.column(carets.list().at(n).nPosition);
        const int nPlace =
            map.map(placeBesideRemoved(lines, lstRanges.at(lstOfCarets.at(n)), nColumn));
        lst.append({nPlace, nPlace});
    }
    command.carets = CCarets(lst, carets.mainIndex());
    return command;
}

SCommand lineNewBelow(const CTextLines &lines, const CCarets &carets)
{
    return lineNew(lines, carets, true);
}

SCommand lineNewAbove(const CTextLines &lines, const CCarets &carets)
{
    return lineNew(lines, carets, false);
}

SCommand lineIndent(const CTextLines &lines, const CCarets &carets)
{
    SCommand command;
    const QVector<SLineRange> lstRanges = touchedRanges(lines, carets);
    for (const SLineRange &range : lstRanges)
        for (int nLine = range.nFirst; nLine <= range.nLast; ++nLine)
            command.lstEdits.append({lines.start(nLine), 0, QStringLiteral("\t")});
    command.carets = CPositionMap(command.lstEdits).map(carets);
    return command;
}

SCommand lineOutdent(const CTextLines &lines, const CCarets &carets)
{
    SCommand command;
    const QVector<SLineRange> lstRanges = touchedRanges(lines, carets);
    for (const SLineRange &range : lstRanges) {
        for (int nLine = range.nFirst; nLine <= range.nLast; ++nLine)
            if (const int nLength = outdentLength(lines.text(nLine)))
                command.lstEdits.append({lines.start(nLine), nLength, QString()});
    }
    command.carets = CPositionMap(command.lstEdits).map(carets);
    return command;
}
