// Handles keys while there are several carets.
#include "editor/chighlightedit.h"

#include "editor/caretedits.h"
#include "editor/ctextlines.h"
#include "editor/indentation.h"
#include "editor/linecommands.h"
#include "widgets/typedkeys.h"

#include <QKeyEvent>

#include <algorithm>

namespace {

struct SMoveKey
{
    QKeySequence::StandardKey key;
    QTextCursor::MoveOperation operation;
    QTextCursor::MoveMode mode;
};

const SMoveKey g_arrMoves[] = {
    {QKeySequence::MoveToNextChar, QTextCursor::Right, QTextCursor::MoveAnchor},
    {QKeySequence::MoveToPreviousChar, QTextCursor::Left, QTextCursor::MoveAnchor},
    {QKeySequence::MoveToNextWord, QTextCursor::WordRight, QTextCursor::MoveAnchor},
    {QKeySequence::MoveToPreviousWord, QTextCursor::WordLeft, QTextCursor::MoveAnchor},
    {QKeySequence::MoveToNextLine, QTextCursor::Down, QTextCursor::MoveAnchor},
    {QKeySequence::MoveToPreviousLine, QTextCursor::Up, QTextCursor::MoveAnchor},
    {QKeySequence::MoveToStartOfLine, QTextCursor::StartOfLine, QTextCursor::MoveAnchor},
    {QKeySequence::MoveToEndOfLine, QTextCursor::EndOfLine, QTextCursor::MoveAnchor},
    {QKeySequence::SelectNextChar, QTextCursor::Right, QTextCursor::KeepAnchor},
    {QKeySequence::SelectPreviousChar, QTextCursor::Left, QTextCursor::KeepAnchor},
    {QKeySequence::SelectNextWord, QTextCursor::WordRight, QTextCursor::KeepAnchor},
    {QKeySequence::SelectPreviousWord, QTextCursor::WordLeft, QTextCursor::KeepAnchor},
    {QKeySequence::SelectNextLine, QTextCursor::Down, QTextCursor::KeepAnchor},
    {QKeySequence::SelectPreviousLine, QTextCursor::Up, QTextCursor::KeepAnchor},
    {QKeySequence::SelectStartOfLine, QTextCursor::StartOfLine, QTextCursor::KeepAnchor},
    {QKeySequence::SelectEndOfLine, QTextCursor::EndOfLine, QTextCursor::KeepAnchor},
};

// The text that a key removes where nothing is selected.
struct SEraseKey
{
    QKeySequence::StandardKey key;
    QTextCursor::MoveOperation upTo;
};

const SEraseKey g_arrErasures[] = {
    {QKeySequence::Delete, QTextCursor::NextCharacter},
    {QKeySequence::DeleteStartOfWord, QTextCursor::PreviousWord},
    {QKeySequence::DeleteEndOfWord, QTextCursor::NextWord},
    {QKeySequence::DeleteEndOfLine, QTextCursor::EndOfBlock},
};

std::optional<QTextCursor::MoveOperation> erasedUpTo(QKeyEvent *pEvent)
{
    // Shift makes no difference here, as with a single caret.
    if (pEvent->key() == Qt::Key_Backspace && !(pEvent->modifiers() & ~Qt::ShiftModifier))
        return QTextCursor::PreviousCharacter;
    const auto it =
        std::find_if(std::begin(g_arrErasures), std::end(g_arrErasures),
                     [&](const SEraseKey &erasure) { return pEvent->matches(erasure.key); });
    return it == std::end(g_arrErasures) ? std::nullopt : std::make_optional(it->upTo);
}

bool isTyped(const QKeyEvent *pEvent)
{
    const bool bCommand =
        (pEvent->modifiers() & Qt::ControlModifier) && !(pEvent->modifiers() & Qt::AltModifier);
    return !bCommand && !pEvent->text().isEmpty() && pEvent->text().at(0).isPrint();
}

} // namespace

bool CHighlightEdit::keyAtCarets(QKeyEvent *pEvent)
{
    if (!hasSeveralCarets())
        return false;
    if (pEvent->key() == Qt::Key_Escape) {
        leaveCarets();
        return true;
    }
    if (moveCarets(pEvent))
        return true;
    if (isReadOnly())
        return false;
    if (pEvent->matches(QKeySequence::Copy))
        copy();
    else if (pEvent->matches(QKeySequence::Cut))
        cut();
    else if (isTab(pEvent) && !(pEvent->modifiers() & Qt::ControlModifier))
        indentAtCarets(pEvent->modifiers() & Qt::ShiftModifier);
    else if (isEnter(pEvent))
        apply(textTyped(m_carets, lineEnds(CDocumentLines(document()), m_carets)));
    else
        return eraseAtCarets(pEvent) || typeAtCarets(pEvent);
    return true;
}

bool CHighlightEdit::moveCarets(QKeyEvent *pEvent)
{
    const auto it =
        std::find_if(std::begin(g_arrMoves), std::end(g_arrMoves),
                     [pEvent](const SMoveKey &move) { return pEvent->matches(move.key); });
    if (it == std::end(g_arrMoves))
        return false;
    QTextCursor cursor = textCursor();
    QVector<SCaret> lst;
    for (const SCaret &caret : m_carets.list()) {
        cursor.setPosition(caret.nAnchor);
        cursor.setPosition(caret.nPosition, QTextCursor::KeepAnchor);
        cursor.movePosition(it->operation, it->mode);
        lst.append({cursor.anchor(), cursor.position()});
    }
    setCarets(CCarets(lst, m_carets.mainIndex()));
    return true;
}

bool CHighlightEdit::eraseAtCarets(QKeyEvent *pEvent)
{
    const std::optional<QTextCursor::MoveOperation> upTo = erasedUpTo(pEvent);
    if (!upTo)
        return false;
    QTextCursor cursor(document());
    apply(textErased(m_carets, [&](int nPosition) {
        cursor.setPosition(nPosition);
        cursor.movePosition(*upTo);
        return cursor.position();
    }));
    return true;
}

bool CHighlightEdit::typeAtCarets(QKeyEvent *pEvent)
{
    if (!isTyped(pEvent))
        return false;
    const QString strTyped = pEvent->text();
    const bool bPair = !(pEvent->modifiers() & ~Qt::ShiftModifier) && !isDeadKey(pEvent);
    const QChar cCloser = bPair ? closingCharacter(strTyped) : QChar();
    if (cCloser.isNull())
        applyTyped(textTyped(m_carets, {{strTyped, 0}}));
    else
        applyTyped(textTyped(m_carets, {{strTyped + cCloser, 1}}));
    return true;
}

void CHighlightEdit::indentAtCarets(bool bOutdent)
{
    const CDocumentLines lines(document());
    const auto spansLines = [&lines](const SCaret &caret) {
        return lines.lineAt(caret.start()) != lines.lineAt(caret.end());
    };
    const QVector<SCaret> &lst = m_carets.list();
    if (bOutdent)
        apply(lineOutdent(lines, m_carets));
    else if (std::any_of(lst.cbegin(), lst.cend(), spansLines))
        apply(lineIndent(lines, m_carets));
    else
        apply(textTyped(m_carets, {{QStringLiteral("\t"), 0}}));
}
