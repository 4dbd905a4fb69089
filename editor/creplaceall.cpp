#include "editor/creplaceall.h"

#include "editor/linesearch.h"

#include <QDeadlineTimer>
#include <QPlainTextEdit>

namespace {

const int g_nReplaceTurn = 30; // Milliseconds between the turns of the event loop.

} // namespace

CReplaceAll::CReplaceAll(QPlainTextEdit *pEdit, const CLineSearch &search,
                         const QString &strReplace)
    : QObject(pEdit),
      m_pEdit(pEdit),
      m_cursor(pEdit->document()),
      m_replacer(&m_cursor, search, strReplace, pEdit->textCursor()),
      m_nRevision(pEdit->document()->revision())
{
    connect(&m_timer, &QTimer::timeout, this, &CReplaceAll::onTick);
}

void CReplaceAll::start(int nFirst)
{
    if (!work(QDeadlineTimer(nFirst)))
        return;
    m_pEdit->setReadOnly(true);
    m_timer.start(0);
}

void CReplaceAll::finish()
{
    work(QDeadlineTimer(QDeadlineTimer::Forever));
}

void CReplaceAll::stop()
{
    if (!m_bRunning)
        return;
    QTextDocument *pDocument = m_pEdit->document();
    const bool bOnlyOurs = pDocument->revision() == m_nRevision;
    end();
    if (!bOnlyOurs) { // Undo would take back another change.
        emit disturbed(m_replacer.count());
        return;
    }
    if (m_replacer.hasEdited()) {
        pDocument->undo();
        pDocument->clearUndoRedoStacks(QTextDocument::RedoStack);
    }
    emit stopped();
}

void CReplaceAll::onTick()
{
    if (work(QDeadlineTimer(g_nReplaceTurn)))
        emit progressed(m_replacer.done(), m_replacer.length());
}

// True while there is more to do.
bool CReplaceAll::work(const QDeadlineTimer &until)
{
    if (!m_bRunning)
        return false;
    const QTextDocument *pDocument = m_pEdit->document();
    if (pDocument->revision() != m_nRevision) {
        end();
        emit disturbed(m_replacer.count());
        return false;
    }
    // The step of undo is never joined with another's.
    if (m_replacer.hasEdited())
        m_cursor.joinPreviousEditBlock();
    else
        m_cursor.beginEditBlock();
    const bool bMore = m_replacer.advance(until);
    m_cursor.endEditBlock();
    m_nRevision = pDocument->revision();
    if (bMore)
        return true;
    end();
    emit finished(m_replacer.count());
    return false;
}

void CReplaceAll::end()
{
    m_bRunning = false;
    if (m_timer.isActive())
        m_pEdit->setReadOnly(false);
    m_timer.stop();
    deleteLater();
}
