#include "editor/caretedits.h"

#include "editor/ccarets.h"
#include "editor/ctextlines.h"
#include "editor/indentation.h"

SCommand textTyped(const CCarets &carets, const QVector<SInsertion> &lstInsertions)
{
    SCommand command;
    QVector<SCaret> lst;
    int nGrown = 0;
    for (int n = 0; n < carets.count(); ++n) {
        const SCaret &caret = carets.list().at(n);
        const SInsertion &insertion = lstInsertions.at(lstInsertions.size() == 1 ? 0 : n);
        const int nLength = caret.end() - caret.start();
        if (nLength > 0 || !insertion.strText.isEmpty())
            command.lstEdits.append({caret.start(), nLength, insertion.strText});
        const int nEnd = caret.start() + nGrown + insertion.strText.length();
        nGrown += insertion.strText.length() - nLength;
        lst.append({nEnd - insertion.nBack, nEnd - insertion.nBack});
    }
    command.carets = CCarets(lst, carets.mainIndex());
    return command;
}

QVector<SInsertion> lineEnds(const CTextLines &lines, const CCarets &carets)
{
    QVector<SInsertion> lst;
    for (const SCaret &caret : carets.list()) {
        const int nLine = lines.lineAt(caret.start());
        const QString strEnded = lines.text(nLine).left(caret.start() - lines.start(nLine));
        const QString strNew = QLatin1Char('\n') + leadingBlanks(strEnded);
        if (endsWithOpeningBrace(strEnded))
            lst.append({strNew + QLatin1Char('\t') + strNew, strNew.length()});
        else
            lst.append({strNew, 0});
    }
    return lst;
}

QVector<SInsertion> pastedParts(const QString &strText, const CCarets &carets)
{
    const QString strPlain = withPlainLineEnds(strText);
    QStringList lstLines = strPlain.split(QLatin1Char('\n'));
    if (lstLines.size() > 1 && lstLines.constLast().isEmpty())
        lstLines.removeLast();
    if (lstLines.size() != carets.count())
        return {{strPlain, 0}};
    QVector<SInsertion> lst;
    for (const QString &strLine : qAsConst(lstLines))
        lst.append({strLine, 0});
    return lst;
}

SCommand textErased(const CCarets &carets, const std::function<int(int)> &otherEnd)
{
    QVector<SCaret> lstRanges;
    for (const SCaret &caret : carets.list()) {
        lstRanges.append(
            caret.hasSelection() ? caret : SCaret {caret.nPosition, otherEnd(caret.nPosition)});
    }
    // Two carets may remove parts of one word.
    const CCarets ranges(lstRanges, carets.mainIndex());
    SCommand command;
    for (const SCaret &range : ranges.list())
        if (range.hasSelection())
            command.lstEdits.append({range.start(), range.end() - range.start(), QString()});
    command.carets = CPositionMap(command.lstEdits).map(ranges);
    return command;
}

QStringList selectedTexts(const CTextLines &lines, const CCarets &carets)
{
    QStringList lst;
    for (const SCaret &caret : carets.list()) {
        if (!caret.hasSelection())
            continue;
        QStringList lstLines;
        const int nLast = lines.lineAt(caret.end());
        for (int nLine = lines.lineAt(caret.start()); nLine <= nLast; ++nLine) {
            const int nStart = qMax(caret.start() - lines.start(nLine), 0);
            const int nEnd = qMin(caret.end() - lines.start(nLine), lines.length(nLine));
            lstLines.append(lines.text(nLine).mid(nStart, nEnd - nStart));
        }
        lst.append(lstLines.join(QLatin1Char('\n')));
    }
    return lst;
}

QString withPlainLineEnds(QString strText)
{
    const QLatin1Char newLine('\n');
    strText.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    // The characters that a text document takes for the end of a paragraph or a frame.
    const QChar arrEnds[] = {QLatin1Char('\r'), QChar::ParagraphSeparator, QChar(0xFDD0),
                             QChar(0xFDD1)};
    for (const QChar cEnd : arrEnds)
        strText.replace(cEnd, newLine);
    return strText;
}
