#pragma once

#include "app/csettings.h"
#include "editor/chighlightedit.h"

#include "literalreplace.h"

#include <QStringList>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

// Find, replace and replace all by their definition, one step of the cursor after the other, on a
// document without a view. Slow on purpose. log holds the signals in their order.
class CLiteralSearch
{
public:
    explicit CLiteralSearch(const QString &strText)
    {
        m_document.setPlainText(strText);
        own = QTextCursor(&m_document);
    }

    QTextDocument *document() { return &m_document; }

    QTextCursor own; // The editor's.
    SLiteralLineOptions options;
    bool bWrap = false;
    QStringList log;

    bool find(const QString &strText, bool bFromEnd, QTextCursor *pCursor)
    {
        if (strText.isEmpty())
            return false;
        QTextCursor cursor = pCursor ? *pCursor : own;
        const int nEnd = m_document.lastBlock().position() + m_document.lastBlock().length() - 1;
        int nStart = 0;
        if (bFromEnd)
            nStart = options.bSearchUp ? nEnd : 0;
        else if (options.bSearchUp)
            nStart = qMin(cursor.position() - 1, cursor.anchor() - 1);
        else
            nStart = cursor.position() < cursor.anchor() ? cursor.anchor() + 1 : cursor.position();
        QTextBlock block = m_document.findBlock(nStart);
        while (block.isValid()) {
            int nOffset = options.bSearchUp ? -1 : 0;
            if (block.position() <= nStart && nStart < block.position() + block.length())
                nOffset = nStart - block.position();
            int nIndex = 0;
            int nLength = 0;
            if (literalFindInLine(block.text(), strText, nOffset, options, &nIndex, &nLength)) {
                cursor.setPosition(block.position() + nIndex);
                cursor.setPosition(block.position() + nIndex + nLength, QTextCursor::KeepAnchor);
                (pCursor ? *pCursor : own) = cursor;
                return true;
            }
            block = options.bSearchUp ? block.previous() : block.next();
        }
        if (!bWrap || bFromEnd) {
            log.append("cannotFound");
            return false;
        }
        bool bFound = false;
        if (nStart != (options.bSearchUp ? nEnd : 0))
            bFound = find(strText, true, nullptr);
        log.append(options.bSearchUp ? "findToTop" : "findToBottom");
        if (bFound)
            return true;
        log.append("cannotFound");
        return false;
    }

    bool replace(const QString &strFind, const QString &strReplace, QTextCursor *pCursor)
    {
        if (strFind.isEmpty())
            return false;
        QTextCursor cursor = pCursor ? *pCursor : own;
        const QString strSelected = cursor.selectedText();
        if (strSelected.isEmpty() || !literalMatchesSelection(strSelected, strFind, options)
            || !isWord(cursor))
            return find(strFind, false, pCursor);
        const int nStart = cursor.selectionStart();
        cursor.insertText(strReplace);
        cursor.setPosition(options.bSearchUp ? nStart : nStart + strReplace.length());
        (pCursor ? *pCursor : own) = cursor;
        return find(strFind, false, pCursor);
    }

    bool replaceAll(const QString &strFind, const QString &strReplace)
    {
        const bool bWrapBefore = bWrap;
        bWrap = false;
        QTextCursor copy = own;
        copy.beginEditBlock();
        const bool bFirst = find(strFind, true, &copy);
        int nCount = 0;
        for (bool bLast = bFirst; bLast; ++nCount)
            bLast = replace(strFind, strReplace, &copy);
        copy.endEditBlock();
        bWrap = bWrapBefore;
        log.append(QStringLiteral("replaceNum %1").arg(nCount));
        return bFirst;
    }

private:
    bool isWord(const QTextCursor &cursor) const
    {
        if (!options.bWholeWord)
            return true;
        const QTextBlock first = m_document.findBlock(cursor.selectionStart());
        const QTextBlock last = m_document.findBlock(cursor.selectionEnd());
        const int nBefore = cursor.selectionStart() - first.position() - 1;
        const int nBehind = cursor.selectionEnd() - last.position();
        if (nBefore >= 0 && first.text().at(nBefore).isLetterOrNumber())
            return false;
        return nBehind >= last.text().length() || !last.text().at(nBehind).isLetterOrNumber();
    }

    QTextDocument m_document;
};

// Records an editor's signals in the words of the literal search.
class CSearchLog : public QObject
{
public:
    explicit CSearchLog(CHighlightEdit *pEdit)
    {
        connect(
            pEdit, &CHighlightEdit::findToTop, this, [this] { lst.append("findToTop"); });
        connect(
            pEdit, &CHighlightEdit::findToBottom, this, [this] { lst.append("findToBottom"); });
        connect(
            pEdit, &CHighlightEdit::cannotFound, this, [this] { lst.append("cannotFound"); });
        connect(pEdit, &CHighlightEdit::replaceNum, this,
                [this](int n) { lst.append(QStringLiteral("replaceNum %1").arg(n)); });
    }
    QStringList lst;
};

// Gives the settings the options of the literal search.
inline void applyOptions(CSettings *pSettings, const SLiteralLineOptions &options, bool bWrap)
{
    pSettings->m_bFindMatchCase = options.bMatchCase;
    pSettings->m_bFindMatchWholeWord = options.bWholeWord;
    pSettings->m_bFindSearchUp = options.bSearchUp;
    pSettings->m_bFindUseRegularExpression = options.bRegExp;
    pSettings->m_bFindWrapSearch = bWrap;
}

inline SLiteralLineOptions literalOptions(int nBits)
{
    return {bool(nBits & 1), bool(nBits & 2), bool(nBits & 4), bool(nBits & 8)};
}
