#include "editor/caretblock.h"

#include "editor/ctextlines.h"

namespace {

const int g_nTabColumns = 4;

// The ranges of scripts that fixed fonts draw two columns wide.
bool isWide(ushort u)
{
    return (u >= 0x1100 && u <= 0x115F) || (u >= 0x2E80 && u <= 0xA4CF)
        || (u >= 0xAC00 && u <= 0xD7A3) || (u >= 0xF900 && u <= 0xFAFF)
        || (u >= 0xFE30 && u <= 0xFE6F) || (u >= 0xFF00 && u <= 0xFF60)
        || (u >= 0xFFE0 && u <= 0xFFE6);
}

// The columns that a character adds; a pair of surrogates takes two together.
int columnsOf(QChar c, int nColumn)
{
    if (c == QLatin1Char('\t'))
        return g_nTabColumns - nColumn % g_nTabColumns;
    if (c.isMark())
        return 0;
    return isWide(c.unicode()) ? 2 : 1;
}

} // namespace

int shownColumn(const QString &strLine, int nPlace)
{
    int nColumn = 0;
    for (int n = 0; n < nPlace; ++n)
        nColumn += columnsOf(strLine.at(n), nColumn);
    return nColumn;
}

int placeAtColumn(const QString &strLine, int nColumn)
{
    int nReached = 0;
    int nPlace = 0;
    while (nPlace < strLine.length()) {
        int nNext = nPlace + 1;
        int nAfter = nReached + columnsOf(strLine.at(nPlace), nReached);
        if (strLine.at(nPlace).isHighSurrogate() && nNext < strLine.length())
            nAfter += columnsOf(strLine.at(nNext++), nAfter);
        if (nAfter > nColumn)
            break;
        nReached = nAfter;
        nPlace = nNext;
    }
    return nPlace;
}

CCarets caretsOfBlock(const CTextLines &lines, const SCaretBlock &block)
{
    const int nFirst = qMin(block.nAnchorLine, block.nLine);
    const int nLast = qMax(block.nAnchorLine, block.nLine);
    const int nLeft = qMin(block.nAnchorColumn, block.nColumn);
    QVector<SCaret> lst;
    int nMain = 0;
    for (int nLine = nFirst; nLine <= nLast; ++nLine) {
        const QString strLine = lines.text(nLine);
        const bool bCorner = nLine == nFirst || nLine == nLast;
        if (!bCorner && shownColumn(strLine, strLine.length()) < nLeft)
            continue;
        const int nStart = lines.start(nLine);
        if (nLine == block.nLine)
            nMain = lst.size();
        lst.append({nStart + placeAtColumn(strLine, block.nAnchorColumn),
                    nStart + placeAtColumn(strLine, block.nColumn)});
    }
    return {lst, nMain};
}

int widestColumn(const CTextLines &lines, const SCaretBlock &block)
{
    int nWidest = 0;
    const int nLast = qMax(block.nAnchorLine, block.nLine);
    for (int nLine = qMin(block.nAnchorLine, block.nLine); nLine <= nLast; ++nLine)
        nWidest = qMax(nWidest, shownColumn(lines.text(nLine), lines.length(nLine)));
    return nWidest;
}

SCaretBlock blockOfCaret(const CTextLines &lines, const SCaret &caret)
{
    SCaretBlock block;
    block.nAnchorLine = lines.lineAt(caret.nAnchor);
    block.nLine = lines.lineAt(caret.nPosition);
    block.nAnchorColumn = shownColumn(lines.text(block.nAnchorLine), lines.column(caret.nAnchor));
    block.nColumn = shownColumn(lines.text(block.nLine), lines.column(caret.nPosition));
    return block;
}

CCarets caretsWithNext(const CTextLines &lines, const CCarets &carets, bool bUp)
{
    const SCaret &edge = bUp ? carets.list().constFirst() : carets.list().constLast();
    const int nLine = lines.lineAt(edge.nPosition);
    const int nNext = bUp ? nLine - 1 : nLine + 1;
    if (nNext < 0 || nNext > lines.lastLine())
        return carets;
    const int nColumn = shownColumn(lines.text(nLine), lines.column(edge.nPosition));
    const int nPlace = lines.start(nNext) + placeAtColumn(lines.text(nNext), nColumn);
    QVector<SCaret> lst = carets.list();
    lst.append({nPlace, nPlace});
    return {lst, lst.size() - 1};
}
