// How results reach the document, on the GUI thread.
#include "highlight/cthreadhighlighter.h"

#include <QElapsedTimer>

namespace {

// Short enough for typing and painting in between.
constexpr int nSliceMs = 8;
constexpr int nResultsAtOnce = 64;

} // namespace

// Works for a moment and comes back from a timer, not from a posted event: posted events are
// delivered to the last one before anything else gets its turn.
void CThreadHighlighter::deliver()
{
    if (m_pDocument) {
        QElapsedTimer timer;
        timer.start();
        while (!m_queue.isEmpty() && timer.elapsed() < nSliceMs) {
            deliverSome(m_queue.take(nResultsAtOnce));
        }
    }
    m_bDelivering = false;
    if (m_pDocument && !m_queue.isEmpty() && !m_bDelivering.exchange(true)) {
        m_timerDeliver.start(0);
    }
}

void CThreadHighlighter::deliverSome(const std::vector<HighlightResult> &lst)
{
    QTextBlock block;
    int nLine = -1;
    int nDelivered = 0;
    uint nVersion = m_pDocument->version();
    bool bMarksLost = false;
    for (const HighlightResult &result : lst) {
        if (result.nVersion != m_pDocument->version()) {
            bMarksLost = bMarksLost || result.kind == HighlightResult::SelectedWord;
            continue;
        }
        if (result.nLine != nLine) {
            block = result.nLine == nLine + 1 && block.isValid()
                ? block.next()
                : m_pDocument->findBlockByNumber(result.nLine);
            nLine = result.nLine;
        }
        if (result.kind == HighlightResult::Syntax) {
            block.setUserState(result.nState);
            ++nDelivered;
            emit blockFormatChanged(result.nVersion, block, result.lst);
        } else {
            emit selectedChanged(result.nVersion, block, result.lst);
        }
    }
    m_pLines->confirm(nVersion, nDelivered);
    if (bMarksLost) {
        repeatSelection();
    }
}

// An edit made marks void that were on their way, and their pass is over.
void CThreadHighlighter::repeatSelection()
{
    {
        const std::lock_guard<std::mutex> locker(m_mutex);
        m_bSelectionWanted = true;
        m_bSelectionRestart = true;
    }
    startIfIdle();
}
