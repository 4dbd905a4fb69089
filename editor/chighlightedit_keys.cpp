#include "editor/chighlightedit.h"

#include "editor/indentation.h"
#include "highlight/ctextdocument.h"
#include "widgets/typedkeys.h"

#include <QKeyEvent>
#include <QTextBlock>

namespace {

const int g_nDefaultFontSize = 12; // Pixels, as in new settings.

// The keypad's Enter carries a modifier of its own.
bool isPlainOrShifted(const QKeyEvent *pEvent)
{
    Qt::KeyboardModifiers modifiers = pEvent->modifiers() & ~Qt::ShiftModifier;
    if (isEnter(pEvent))
        modifiers &= ~Qt::KeypadModifier;
    return modifiers == Qt::NoModifier;
}

QTextBlock lastSelectedBlock(const QTextCursor &cursor)
{
    return cursor.document()->findBlock(qMax(cursor.selectionEnd() - 1, 0));
}

} // namespace

bool CHighlightEdit::zoomByKey(const QKeyEvent *pEvent)
{
    switch (zoomKey(pEvent)) {
    case ZoomKey::Larger:
        changeFontSize(font().pixelSize() + 1);
        return true;
    case ZoomKey::Smaller:
        changeFontSize(font().pixelSize() - 1);
        return true;
    case ZoomKey::Usual:
        changeFontSize(g_nDefaultFontSize);
        return true;
    case ZoomKey::None:
        break;
    }
    return false;
}

void CHighlightEdit::keyPressEvent(QKeyEvent *pEvent)
{
    if (zoomByKey(pEvent) || runKeyCommand(pEvent) || keyAtCarets(pEvent) || moveInRows(pEvent)) {
        pEvent->accept();
        return;
    }
    const bool bPlainOrShifted = isPlainOrShifted(pEvent);
    const bool bTab = isTab(pEvent);
    if (bTab && bPlainOrShifted && !isReadOnly() && isSeveralLinesSelected()) {
        const bool bOutdent = pEvent->modifiers() & Qt::ShiftModifier;
        recordCarets([this, bOutdent] { indentSelection(bOutdent); });
        pEvent->accept();
        return;
    }
    if (bPlainOrShifted && !isReadOnly() && !isDeadKey(pEvent) && typePair(pEvent->text())) {
        pEvent->accept();
        return;
    }
    if (!isEnter(pEvent) || !bPlainOrShifted) {
        QPlainTextEdit::keyPressEvent(pEvent);
        // If it were not accepted, Shift+Tab would move the focus to another part of the window.
        if (bTab && bPlainOrShifted && !isReadOnly())
            pEvent->accept();
        return;
    }
    // Shift+Enter begins a line like Enter alone. The base class would insert a line separator,
    // which no source file should hold.
    QKeyEvent enter(pEvent->type(), pEvent->key(), pEvent->modifiers() & ~Qt::ShiftModifier,
                    pEvent->text(), pEvent->isAutoRepeat(), ushort(pEvent->count()));
    QPlainTextEdit::keyPressEvent(&enter);
    pEvent->setAccepted(enter.isAccepted());
    if (!isReadOnly())
        indentNewLine();
}

// Home and End mean the whole line, although it is shown in rows, because lines are not wrapped.
bool CHighlightEdit::moveInRows(const QKeyEvent *pEvent)
{
    if (!m_pDocument->isInRows(textCursor().block()))
        return false;
    if (pEvent->matches(QKeySequence::MoveToStartOfLine))
        moveCursor(QTextCursor::StartOfBlock);
    else if (pEvent->matches(QKeySequence::MoveToEndOfLine))
        moveCursor(QTextCursor::EndOfBlock);
    else if (pEvent->matches(QKeySequence::SelectStartOfLine))
        moveCursor(QTextCursor::StartOfBlock, QTextCursor::KeepAnchor);
    else if (pEvent->matches(QKeySequence::SelectEndOfLine))
        moveCursor(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    else
        return false;
    return true;
}

bool CHighlightEdit::isSeveralLinesSelected() const
{
    const QTextCursor cursor = textCursor();
    return cursor.hasSelection()
        && document()->findBlock(cursor.selectionStart()) != lastSelectedBlock(cursor);
}

void CHighlightEdit::indentSelection(bool bOutdent)
{
    QTextCursor cursor = textCursor();
    const QTextBlock first = document()->findBlock(cursor.selectionStart());
    const QTextBlock last = lastSelectedBlock(cursor);
    const bool bCursorInLast = cursor.block() == last;

    QTextCursor edit(first);
    edit.beginEditBlock();
    for (QTextBlock block = first; block.isValid(); block = block.next()) {
        edit.setPosition(block.position());
        if (!bOutdent) {
            edit.insertText(QStringLiteral("\t"));
        } else if (const int nLength = outdentLength(block.text())) {
            edit.setPosition(block.position() + nLength, QTextCursor::KeepAnchor);
            edit.removeSelectedText();
        }
        if (block == last)
            break;
    }
    edit.endEditBlock();
    selectLines(first, last, bCursorInLast);
}

// Enter has begun a line. The addition is undone together with it.
void CHighlightEdit::indentNewLine()
{
    QTextCursor cursor = textCursor();
    const QTextBlock previous = cursor.block().previous();
    if (!previous.isValid())
        return;
    const QString strBlanks = leadingBlanks(previous.text());
    const bool bBrace = endsWithOpeningBrace(previous.text());
    if (strBlanks.isEmpty() && !bBrace)
        return;
    cursor.joinPreviousEditBlock();
    cursor.insertText(strBlanks);
    if (bBrace) {
        cursor.setPosition(previous.position() + previous.length() - 1);
        cursor.insertBlock();
        cursor.insertText(strBlanks + QLatin1Char('\t'));
    }
    cursor.endEditBlock();
    setTextCursor(cursor);
}

// Types an opening bracket or quote together with its closing one. Both are one step of undo, so
// the base class must not type the first. False for any other text.
bool CHighlightEdit::typePair(const QString &strTyped)
{
    const QChar closer = closingCharacter(strTyped);
    if (closer.isNull())
        return false;
    QTextCursor cursor = textCursor();
    cursor.insertText(strTyped + closer);
    cursor.movePosition(QTextCursor::PreviousCharacter);
    setTextCursor(cursor);
    return true;
}
