#include "editor/linecommands.h"

#include "editor/ccarets.h"
#include "editor/ctextlines.h"
#include "editor/words.h"

namespace {

using Change = QString (*)(const QString &);

// Changes a range line by line, so that a line without a change is not touched.
void addChanges(const CTextLines &lines, int nStart, int nEnd, Change change, TextEdits *pEdits)
{
    for (int nLine = lines.lineAt(nStart); nLine < lines.count(); ++nLine) {
        const int nLineStart = lines.start(nLine);
        if (nLineStart > nEnd)
            break;
        const int nFrom = qMax(nStart - nLineStart, 0);
        const int nTo = qMin(nEnd - nLineStart, lines.length(nLine));
        const QString strBefore = lines.text(nLine).mid(nFrom, nTo - nFrom);
        const QString strAfter = change(strBefore);
        if (strAfter != strBefore)
            pEdits->append({nLineStart + nFrom, strBefore.length(), strAfter});
    }
}

SCaret rangeToChange(const CTextLines &lines, const SCaret &caret)
{
    if (caret.hasSelection())
        return caret;
    const int nLine = lines.lineAt(caret.nPosition);
    const int nLineStart = lines.start(nLine);
    const SWord word = wordAt(lines.text(nLine), caret.nPosition - nLineStart);
    return {nLineStart + word.nStart, nLineStart + word.end()};
}

SCommand changed(const CTextLines &lines, const CCarets &carets, Change change)
{
    SCommand command;
    QVector<SCaret> lstRanges;
    for (const SCaret &caret : carets.list())
        lstRanges.append(rangeToChange(lines, caret));
    // Two carets in one word change it once.
    const CCarets ranges(lstRanges, 0);
    for (const SCaret &range : ranges.list())
        addChanges(lines, range.start(), range.end(), change, &command.lstEdits);
    command.carets = CPositionMap(command.lstEdits).map(carets);
    return command;
}

QString upper(const QString &strText)
{
    return strText.toUpper();
}

QString lower(const QString &strText)
{
    return strText.toLower();
}

} // namespace

SCommand textUpperCase(const CTextLines &lines, const CCarets &carets)
{
    return changed(lines, carets, upper);
}

SCommand textLowerCase(const CTextLines &lines, const CCarets &carets)
{
    return changed(lines, carets, lower);
}
