#include "editor/documentsearch.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

int searchStart(const QTextCursor &cursor, bool bSearchUp, bool bFromEnd)
{
    if (bFromEnd)
        return bSearchUp ? documentEnd(cursor.document()) : 0;
    const int nPosition = cursor.position();
    const int nAnchor = cursor.anchor();
    if (bSearchUp)
        return qMin(nPosition, nAnchor) - 1;
    return nPosition < nAnchor ? nAnchor + 1 : qMax(nPosition, 0);
}

int documentEnd(const QTextDocument *pDocument)
{
    return pDocument->characterCount() - 1;
}

namespace {

// This many characters are searched first, so that near matches are found at once in any document.
const int g_nNearLength = 32 * 1024;

// Lines of the document, joined by paragraph separators.
struct SLineRun
{
    int nStart = 0; // The position of the first line in the document.
    QString strText;
};

SLineRun readNear(QTextDocument *pDocument, int nPosition, bool bUp)
{
    const int nFrom = bUp ? qMax(nPosition - g_nNearLength, 0) : nPosition;
    const int nTo = bUp ? nPosition : qMin(nPosition + g_nNearLength, documentEnd(pDocument));
    const QTextBlock last = pDocument->findBlock(nTo);
    SLineRun run;
    run.nStart = pDocument->findBlock(nFrom).position();
    QTextCursor cursor(pDocument);
    cursor.setPosition(run.nStart);
    cursor.setPosition(last.position() + last.length() - 1, QTextCursor::KeepAnchor);
    run.strText = cursor.selectedText();
    return run;
}

// The lines beyond the near ones. Copying the text at once takes a tenth of the time that asking
// each block takes.
SLineRun readFar(const QTextDocument *pDocument, const SLineRun &nearby, bool bUp)
{
    SLineRun run;
    run.nStart = bUp ? 0 : nearby.nStart + nearby.strText.length() + 1;
    run.strText = pDocument->toRawText();
    if (bUp)
        run.strText.truncate(nearby.nStart - 1);
    else
        run.strText.remove(0, run.nStart);
    return run;
}

SDocumentMatch findInRun(const CLineSearch &search, const SLineRun &run, int nOffset)
{
    const SRunMatch found = search.findInRun(run.strText, nOffset);
    SDocumentMatch match;
    if (found.isValid()) {
        match.nStart = run.nStart + found.nLineStart + found.match.nStart;
        match.nLength = found.match.nLength;
    }
    return match;
}

} // namespace

SDocumentMatch findFrom(QTextDocument *pDocument, const CLineSearch &search, int nStart)
{
    const int nEnd = documentEnd(pDocument);
    if (nStart < 0 || nStart > nEnd)
        return SDocumentMatch();
    const bool bUp = search.options().bSearchUp;
    const SLineRun nearby = readNear(pDocument, nStart, bUp);
    const SDocumentMatch match = findInRun(search, nearby, nStart - nearby.nStart);
    const bool bAllRead =
        bUp ? nearby.nStart == 0 : nearby.nStart + nearby.strText.length() == nEnd;
    if (match.isValid() || bAllRead)
        return match;
    // Upwards, -1 is the last line's last character.
    return findInRun(search, readFar(pDocument, nearby, bUp), bUp ? -1 : 0);
}
