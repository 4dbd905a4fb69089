#include "editor/chighlightedit.h"

#include "editor/commenttoggle.h"
#include "highlight/cthreadhighlighter.h"

#include <QDebug>
#include <QTextBlock>

namespace {

void removeText(QTextCursor *pEdit, int nStart, int nLength)
{
    pEdit->setPosition(nStart);
    pEdit->setPosition(nStart + nLength, QTextCursor::KeepAnchor);
    pEdit->removeSelectedText();
}

void insertText(QTextCursor *pEdit, int nPosition, const QString &strText)
{
    pEdit->setPosition(nPosition);
    pEdit->insertText(strText);
}

SCommentSelection selectionOf(const QTextCursor &cursor)
{
    const QTextBlock first = cursor.document()->findBlock(cursor.selectionStart());
    const QTextBlock last = cursor.document()->findBlock(cursor.selectionEnd());
    SCommentSelection selection;
    selection.strText = cursor.selectedText();
    for (QTextBlock block = first; block.isValid(); block = block.next()) {
        selection.lstLines.append(block.text());
        if (block == last)
            break;
    }
    selection.strPrefix = first.text().left(cursor.selectionStart() - first.position());
    selection.strSuffix = last.text().mid(cursor.selectionEnd() - last.position());
    return selection;
}

void uncommentLines(QTextCursor *pEdit, QTextBlock block, const QVector<int> &lstLengths)
{
    for (const int nLength : lstLengths) {
        removeText(pEdit, block.position(), nLength);
        block = block.next();
    }
}

void commentLines(QTextCursor *pEdit, const QTextBlock &first, const QTextBlock &last,
                  const QString &strMarker)
{
    for (QTextBlock block = first; block.isValid(); block = block.next()) {
        insertText(pEdit, block.position(), strMarker);
        if (block == last)
            break;
    }
}

} // namespace

bool CHighlightEdit::toggleComment()
{
    const QTextCursor cursor = textCursor();
    if (!m_pHighlighter || isReadOnly() || !cursor.hasSelection())
        return false;
    const SCommentMarkers markers {m_pHighlighter->singleLineComment(),
                                   m_pHighlighter->multiLineCommentStart(),
                                   m_pHighlighter->multiLineCommentEnd()};
    qDebug() << "strSingleComment:" << markers.strSingle;
    qDebug() << "strMultiCommentStart:" << markers.strStart;

    const SCommentToggle toggle = toggleOf(selectionOf(cursor), markers);
    recordCarets([&] { applyToggle(toggle, markers); });
    return true;
}

void CHighlightEdit::applyToggle(const SCommentToggle &toggle, const SCommentMarkers &markers)
{
    const QTextCursor cursor = textCursor();
    const int nStart = cursor.selectionStart();
    const int nEnd = cursor.selectionEnd();
    const QTextBlock first = document()->findBlock(nStart);
    const QTextBlock last = document()->findBlock(nEnd);
    const bool bCursorFirst = cursor.position() == nStart;
    QTextCursor edit(document());
    edit.beginEditBlock();
    switch (toggle.action) {
    case SCommentToggle::Unwrap:
        removeText(&edit, nEnd - toggle.nEndLength, toggle.nEndLength);
        removeText(&edit, nStart, toggle.nStartLength);
        break;
    case SCommentToggle::Uncomment:
        uncommentLines(&edit, first, toggle.lstLengths);
        break;
    case SCommentToggle::CommentLines:
        commentLines(&edit, first, last, markers.strSingle);
        break;
    case SCommentToggle::Wrap:
        insertText(&edit, nEnd, markers.strEnd);
        insertText(&edit, nStart, markers.strStart);
        break;
    }
    edit.endEditBlock();
    if (toggle.action == SCommentToggle::Wrap) {
        const int nMarkers = markers.strStart.length() + markers.strEnd.length();
        selectRange(nStart, nEnd + nMarkers, bCursorFirst);
    } else if (toggle.action != SCommentToggle::Unwrap) {
        selectLines(first, last, bCursorFirst);
    }
}
