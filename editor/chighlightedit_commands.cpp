// The keys of commands, and how a command is carried out.
#include "editor/chighlightedit.h"

#include "editor/creplaceall.h"
#include "editor/ctextlines.h"
#include "editor/linecommands.h"
#include "editor/menukeys.h"
#include "editor/textedits.h"

#include <QHash>
#include <QKeyEvent>
#include <QMainWindow>
#include <QMenuBar>
#include <QScopedValueRollback>

namespace {

// A key's command is either a function on lines, with the message for when it had nothing to do, or
// a slot.
struct SKeyCommand
{
    const char *szKey;
    SCommand (*pLines)(const CTextLines &, const CCarets &);
    const char *szNothing;
    void (CHighlightEdit::*pRun)();
};

const SKeyCommand g_arrCommands[] = {
    {"Alt+Up", lineMoveUp, QT_TRANSLATE_NOOP("CHighlightEdit", "There is no line above."), nullptr},
    {"Alt+Down", lineMoveDown, QT_TRANSLATE_NOOP("CHighlightEdit", "There is no line below."),
     nullptr},
    {"Ctrl+D", lineDuplicate, "", nullptr},
    {"Ctrl+Shift+K", lineDelete, QT_TRANSLATE_NOOP("CHighlightEdit", "There is no line to delete."),
     nullptr},
    {"Ctrl+J", lineJoin, QT_TRANSLATE_NOOP("CHighlightEdit", "There is no line below."), nullptr},
    {"Ctrl+Return", lineNewBelow, "", nullptr},
    {"Ctrl+Enter", lineNewBelow, "", nullptr},
    {"Ctrl+Shift+Return", lineNewAbove, "", nullptr},
    {"Ctrl+Shift+Enter", lineNewAbove, "", nullptr},
    {"Ctrl+Shift+U", textUpperCase,
     QT_TRANSLATE_NOOP("CHighlightEdit", "There are no lower-case letters here."), nullptr},
    {"Ctrl+Alt+U", textLowerCase,
     QT_TRANSLATE_NOOP("CHighlightEdit", "There are no upper-case letters here."), nullptr},
    {"Ctrl+Shift+F9", lineSort,
     QT_TRANSLATE_NOOP("CHighlightEdit", "The lines are in order already."), nullptr},
    {"Ctrl+Alt+Up", nullptr, "", &CHighlightEdit::addCaretAbove},
    {"Ctrl+Alt+Down", nullptr, "", &CHighlightEdit::addCaretBelow},
    {"Ctrl+Space", nullptr, "", &CHighlightEdit::offerWords},
    {"F4", nullptr, "", &CHighlightEdit::suggestSpelling},
    {"Shift+F4", nullptr, "", &CHighlightEdit::markSpelling},
    {"Ctrl+M", nullptr, "", &CHighlightEdit::goToBracket},
    {"Ctrl+Shift+M", nullptr, "", &CHighlightEdit::selectToBracket},
    {"Alt+F3", nullptr, "", &CHighlightEdit::selectOccurrences},
    {"Alt+Shift+Left", nullptr, "", &CHighlightEdit::extendBlockLeft},
    {"Alt+Shift+Right", nullptr, "", &CHighlightEdit::extendBlockRight},
    {"Alt+Shift+Up", nullptr, "", &CHighlightEdit::extendBlockUp},
    {"Alt+Shift+Down", nullptr, "", &CHighlightEdit::extendBlockDown},
};

const SKeyCommand *commandOfKey(int nKey)
{
    static const QHash<int, const SKeyCommand *> s_commands = [] {
        QHash<int, const SKeyCommand *> commands;
        for (const SKeyCommand &command : g_arrCommands)
            commands.insert(QKeySequence(QLatin1String(command.szKey))[0], &command);
        return commands;
    }();
    return s_commands.value(nKey);
}

// What Ctrl and Alt together type on some keyboards is a character, not a command.
bool isTypedByAltGr(const QKeyEvent *pEvent)
{
    const Qt::KeyboardModifiers both = Qt::ControlModifier | Qt::AltModifier;
    return (pEvent->modifiers() & both) == both && !pEvent->text().isEmpty()
        && pEvent->text().at(0).isPrint();
}

bool isFunctionKey(const QKeyEvent *pEvent)
{
    return pEvent->key() >= Qt::Key_F1 && pEvent->key() <= Qt::Key_F35;
}

// A letter with Alt belongs to the menus, even if no menu has it.
bool isMenuKey(const QKeyEvent *pEvent)
{
    return !(pEvent->modifiers() & Qt::ControlModifier) && !pEvent->text().isEmpty()
        && pEvent->text().at(0).isLetter();
}

} // namespace

bool CHighlightEdit::runKeyCommand(QKeyEvent *pEvent)
{
    if (m_bTold)
        tell(QString());
    if (m_pCounter)
        m_pCounter->cancel();
    const Qt::KeyboardModifiers modifiers = pEvent->modifiers() & ~Qt::KeypadModifier;
    const bool bTypes =
        !(modifiers & (Qt::ControlModifier | Qt::AltModifier)) && !isFunctionKey(pEvent);
    if (bTypes || isTypedByAltGr(pEvent))
        return false;
    if (isMenuKey(pEvent)) {
        if (const auto *pWindow = qobject_cast<QMainWindow *>(window()))
            openMenuOfLetter(pWindow->menuBar(), pEvent->text().at(0));
        return true;
    }
    if (isReadOnly())
        return false;
    if (pEvent->matches(QKeySequence::Undo) || pEvent->matches(QKeySequence::Redo)) {
        stepHistory(pEvent->matches(QKeySequence::Undo));
        return true;
    }
    const SKeyCommand *pCommand = commandOfKey(pEvent->key() | int(modifiers));
    if (!pCommand)
        return false;
    if (pCommand->pLines)
        runLineCommand(pCommand->pLines, pCommand->szNothing);
    else
        (this->*pCommand->pRun)();
    return true;
}

void CHighlightEdit::runLineCommand(LineCommand pCommand, const char *szNothing)
{
    const SCommand command = pCommand(CDocumentLines(document()), carets());
    if (command.isNothing())
        tell(tr(szNothing));
    else
        apply(command);
}

void CHighlightEdit::apply(const SCommand &command)
{
    if (isReadOnly() || command.isNothing())
        return;
    const CCarets before = carets();
    const int nSteps = document()->availableUndoSteps();
    {
        const QScopedValueRollback<bool> applying(m_bApplying, true);
        applyEdits(document(), command.lstEdits, before.main().nPosition, false);
    }
    setCarets(command.carets);
    m_history.add({nSteps, document()->availableUndoSteps(), before, command.carets});
    m_bTyping = false;
}

// Keys typed one after the other at several carets are one step of undo, as with a single caret.
void CHighlightEdit::applyTyped(const SCommand &command)
{
    const int nSteps = document()->availableUndoSteps();
    const CCaretHistory::SRecord *pLast = m_history.undoneFrom(nSteps);
    if (!m_bTyping || !pLast || pLast->after != carets() || document()->isRedoAvailable()) {
        apply(command);
        m_bTyping = true;
        return;
    }
    {
        const QScopedValueRollback<bool> applying(m_bApplying, true);
        applyEdits(document(), command.lstEdits, carets().main().nPosition, true);
    }
    setCarets(command.carets);
    m_history.growLast(document()->availableUndoSteps(), command.carets);
}

// For a change that sets the cursor by itself.
void CHighlightEdit::recordCarets(const std::function<void()> &change)
{
    const CCarets before = carets();
    const int nSteps = document()->availableUndoSteps();
    change();
    const int nStepsAfter = document()->availableUndoSteps();
    if (nStepsAfter > nSteps)
        m_history.add({nSteps, nStepsAfter, before, carets()});
}

void CHighlightEdit::undo()
{
    stepHistory(true);
}

void CHighlightEdit::redo()
{
    stepHistory(false);
}

void CHighlightEdit::stepHistory(bool bUndo)
{
    if (!(bUndo ? document()->isUndoAvailable() : document()->isRedoAvailable()))
        return;
    if (m_pReplaceAll) { // Its step of undo is not complete.
        m_pReplaceAll->stop();
        return;
    }
    const int nSteps = document()->availableUndoSteps();
    const CCaretHistory::SRecord *pRecord =
        bUndo ? m_history.undoneFrom(nSteps) : m_history.redoneFrom(nSteps);
    const std::optional<CCaretHistory::SRecord> record =
        pRecord ? std::make_optional(*pRecord) : std::nullopt;
    m_bTyping = false;
    {
        const QScopedValueRollback<bool> applying(m_bApplying, true);
        if (bUndo)
            QPlainTextEdit::undo();
        else
            QPlainTextEdit::redo();
    }
    const int nReached = document()->availableUndoSteps();
    if (record && nReached == (bUndo ? record->nStepsBefore : record->nStepsAfter))
        setCarets(bUndo ? record->before : record->after);
    else
        leaveCarets();
}

void CHighlightEdit::tell(const QString &strText)
{
    m_bTold = !strText.isEmpty();
    emit statusMessage(strText);
}
