// Steps of undo, and which of them the file on the disk has.
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

// The next typing is a separate step.
void CEditWebView::endStep()
{
    evaluate(PageScript::endTyping());
    // Do not end it again at the next key, which would lose a format chosen in between.
    m_steps.start();
}

// A page that equals its file is not modified, whichever way it came back to that.
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
