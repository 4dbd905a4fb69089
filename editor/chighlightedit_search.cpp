#include "editor/chighlightedit.h"

#include "app/csettings.h"
#include "editor/creplaceall.h"
#include "editor/documentreplace.h"
#include "editor/documentsearch.h"
#include "editor/linesearch.h"
#include "editor/matchcount.h"
#include "highlight/ctextdocument.h"

#include <QScopedValueRollback>
#include <QTextBlock>

namespace {

SSearchOptions searchOptions()
{
    SSearchOptions options;
    options.bMatchCase = g_pSettings->m_bFindMatchCase;
    options.bWholeWord = g_pSettings->m_bFindMatchWholeWord;
    options.bSearchUp = g_pSettings->m_bFindSearchUp;
    options.bRegExp = g_pSettings->m_bFindUseRegularExpression;
    return options;
}

bool selectionMatches(const QTextCursor &cursor, const CLineSearch &search)
{
    if (!search.matchesExactly(cursor.selectedText()))
        return false;
    const QTextDocument *pDocument = cursor.document();
    return !search.options().bWholeWord
        || (!pDocument->characterAt(cursor.selectionStart() - 1).isLetterOrNumber()
            && !pDocument->characterAt(cursor.selectionEnd()).isLetterOrNumber());
}

} // namespace

bool CHighlightEdit::find(const QString &text, bool bFromEnd, QTextCursor *pCursor)
{
    if (text.isEmpty())
        return false;
    QTextCursor cursor = pCursor ? *pCursor : textCursor();
    const CLineSearch search(text, searchOptions());
    const bool bUp = search.options().bSearchUp;
    const int nStart = searchStart(cursor, bUp, bFromEnd);
    const SDocumentMatch match = findFrom(document(), search, nStart);
    if (match.isValid()) {
        cursor.setPosition(match.nStart);
        cursor.setPosition(match.nStart + match.nLength, QTextCursor::KeepAnchor);
        if (pCursor)
            *pCursor = cursor;
        else
            showMatch(text, match);
        return true;
    }
    const bool bWrap = g_pSettings->m_bFindWrapSearch && !bFromEnd;
    if (bWrap && findWrapped(text, nStart == (bUp ? documentEnd(document()) : 0)))
        return true;
    emit cannotFound();
    return false;
}

// Selects the match and counts which one it is. The count runs on a thread over a copy of the
// lines, so that typing goes on.
void CHighlightEdit::showMatch(const QString &strText, const SDocumentMatch &match)
{
    selectRange(match.nStart, match.nStart + match.nLength, false); // Makes it visible.
    if (!m_pCounter)
        m_pCounter = std::make_unique<CBackgroundJob>();
    const QTextBlock block = document()->findBlock(match.nStart);
    const int nLine = block.blockNumber();
    const int nPlace = match.nStart - block.position();
    const auto count = [this, pLines = m_pDocument->lines(), nVersion = m_pDocument->version(),
                        strText, options = searchOptions(), nLine,
                        nPlace](const CBackgroundJob::Cancelled &isCancelled) {
        const SMatchCount counted = countMatches(*pLines, nVersion, CLineSearch(strText, options),
                                                 nLine, nPlace, isCancelled);
        CBackgroundJob::Finish finish;
        if (counted.nCount > 0)
            finish = [this, counted] { emit findCounted(counted.nIndex, counted.nCount); };
        return finish;
    };
    m_pCounter->start(count);
}

// The second pass starts at the other end, unless the first one began there. Reaching an end is
// reported even if something is found after it.
bool CHighlightEdit::findWrapped(const QString &strText, bool bAllSearched)
{
    const bool bFound = !bAllSearched && find(strText, true, nullptr);
    if (g_pSettings->m_bFindSearchUp)
        emit findToTop();
    else
        emit findToBottom();
    return bFound;
}

bool CHighlightEdit::findPrevious(const QString &text)
{
    const QScopedValueRollback<bool> up(g_pSettings->m_bFindSearchUp,
                                        !g_pSettings->m_bFindSearchUp);
    return find(text, false, nullptr);
}

bool CHighlightEdit::replace(const QString &findText, const QString &replaceText,
                             QTextCursor *pCursor)
{
    if (findText.isEmpty())
        return false;
    QTextCursor cursor = pCursor ? *pCursor : textCursor();
    const CLineSearch search(findText, searchOptions());
    if (cursor.hasSelection() && selectionMatches(cursor, search)) {
        const int nStart = cursor.selectionStart();
        cursor.insertText(replaceText);
        cursor.setPosition(search.options().bSearchUp ? nStart : nStart + replaceText.length());
        if (pCursor)
            *pCursor = cursor;
        else
            setTextCursor(cursor);
    }
    return find(findText, false, pCursor);
}

bool CHighlightEdit::replaceAll(const QString &findText, const QString &replaceText)
{
    int nCount = 0;
    {
        const QScopedValueRollback<bool> wrap(g_pSettings->m_bFindWrapSearch, false);
        QTextCursor cursor = textCursor();
        cursor.beginEditBlock();
        nCount = replaceMatches(findText, replaceText, &cursor);
        cursor.endEditBlock();
    }
    emit replaceNum(nCount);
    return nCount > 0;
}

void CHighlightEdit::startReplaceAll(const QString &strFind, const QString &strReplace)
{
    if (m_pReplaceAll) {
        tell(tr("Replace All is still at work."));
        return;
    }
    if (strFind.isEmpty() || holdsBlockEnd(strReplace)) {
        replaceAll(strFind, strReplace);
        return;
    }
    m_pReplaceAll = new CReplaceAll(this, CLineSearch(strFind, searchOptions()), strReplace);
    connect(m_pReplaceAll, &CReplaceAll::finished, this, [this](int nCount) {
        m_pReplaceAll = nullptr;
        emit cannotFound();
        emit replaceNum(nCount);
    });
    connect(m_pReplaceAll, &CReplaceAll::stopped, this, [this] {
        m_pReplaceAll = nullptr;
        tell(tr("Replace All was stopped; nothing is replaced."));
    });
    connect(m_pReplaceAll, &CReplaceAll::disturbed, this, [this](int nCount) {
        m_pReplaceAll = nullptr;
        tell(tr("The text was changed: Replace All ended after %n matches.", nullptr, nCount));
    });
    m_pReplaceAll->start();
}

void CHighlightEdit::finishReplaceAll()
{
    if (m_pReplaceAll)
        m_pReplaceAll->finish();
}

// Signals once that nothing more is found, as the last of many single searches would.
int CHighlightEdit::replaceMatches(const QString &strFind, const QString &strReplace,
                                   QTextCursor *pCursor)
{
    if (strFind.isEmpty())
        return 0;
    int nCount = 0;
    if (holdsBlockEnd(strReplace)) {
        for (bool bFound = find(strFind, true, pCursor); bFound; ++nCount)
            bFound = replace(strFind, strReplace, pCursor);
        return nCount;
    }
    const CLineSearch search(strFind, searchOptions());
    nCount = CDocumentReplacer(pCursor, search, strReplace, textCursor()).run();
    emit cannotFound();
    return nCount;
}

bool CHighlightEdit::goToLine(int nLine)
{
    if (nLine < 1 || nLine > blockCount()) {
        tell(tr("There is no line %1; the last line is %2.").arg(nLine).arg(blockCount()));
        return false;
    }
    setCenterOnScroll(true);
    goToBlock(nLine - 1);
    setCenterOnScroll(false);
    return true;
}

void CHighlightEdit::goToBlock(int nBlock)
{
    QTextCursor cursor = textCursor();
    cursor.setPosition(document()->findBlockByNumber(nBlock).position());
    setTextCursor(cursor);
}

void CHighlightEdit::selectRange(int nStart, int nEnd, bool bCursorAtStart)
{
    QTextCursor cursor = textCursor();
    cursor.setPosition(bCursorAtStart ? nEnd : nStart);
    cursor.setPosition(bCursorAtStart ? nStart : nEnd, QTextCursor::KeepAnchor);
    setTextCursor(cursor);
}

void CHighlightEdit::selectLines(const QTextBlock &first, const QTextBlock &last,
                                 bool bCursorAtStart)
{
    selectRange(first.position(), last.position() + last.length() - 1, bCursorAtStart);
}
