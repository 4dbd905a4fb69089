// Steps of undo, and what of them the file on the disk has.
#include "web/ceditwebview.h"

#include "web/pagescript.h"
#include "widgets/typedkeys.h"

#include <QDateTime>
#include <QKeyEvent>
#include <QUndoStack>

namespace {

bool changesText(const QKeyEvent *pEvent)
{
    if (pEvent->key() == Qt::Key_Backspace || pEvent->key() == Qt::Key_Delete)
        return true;
    const bool bCommand = pEvent->modifiers() & (Qt::ControlModifier | Qt::MetaModifier)
        && !(pEvent->modifiers() & Qt::AltModifier);
    return !bCommand && !pEvent->text().isEmpty();
}

} // namespace

// A key is about to reach the page.
void CEditWebView::followTyping(const QKeyEvent *pEvent)
{
    if (!changesText(pEvent))
        return;
    const bool bEnter = isEnter(pEvent);
    if (m_steps.type(pEvent->text(), bEnter, QDateTime::currentMSecsSinceEpoch()))
        evaluate(PageScript::endTyping());
}

// What is typed next is a step of its own.
void CEditWebView::endStep()
{
    evaluate(PageScript::endTyping());
    m_steps.start(); // Not again at the next key: it would lose a format chosen in between.
}

// The page as it is in its file is not modified, whichever way it came back there.
void CEditWebView::onUndoIndexChanged(int nIndex)
{
    const int nCount = page()->undoStack()->count();
    const bool bMayBeBack = nIndex < m_nUndoIndex || nCount == m_nUndoCount;
    m_nUndoIndex = nIndex;
    m_nUndoCount = nCount;
    if (!bMayBeBack || !m_bModified || !m_bBaseSaved || isSourceShown()
        || toHtml() != m_merge.serialised())
        return;
    setModified(false);
    emit modifiedChanged(false);
}
