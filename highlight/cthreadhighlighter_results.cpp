// Hands results to the document, on the GUI thread.
#include "highlight/cthreadhighlighter.h"
#include "highlight/highlightformats.h"

#include <QElapsedTimer>
#include <QTextBlock>
#include <QTextLayout>

namespace {

// Short enough to leave time for typing and painting.
constexpr int g_nSliceMs = 8;
constexpr int g_nResultsAtOnce = 64;

} // namespace

// Asking who listens takes as long as a line's results, so it is asked only after a change. It is
// not asked here: Qt may hold the lock that receivers() needs (see QObject::disconnectNotify()).
void CThreadHighlighter::connectNotify(const QMetaMethod &)
{
    m_bListenersChanged = true;
}

void CThreadHighlighter::disconnectNotify(const QMetaMethod &)
{
    m_bListenersChanged = true;
}

void CThreadHighlighter::noteListeners()
{
    if (!m_bListenersChanged.exchange(false))
        return;
    m_bOthersListen =
        receivers(SIGNAL(blockFormatChanged(uint, QTextBlock, QList<QTextLayout::FormatRange>))) > 1
        || receivers(SIGNAL(selectedChanged(uint, QTextBlock, QList<QTextLayout::FormatRange>)))
            > 1;
}

// Works for a moment and comes back from a timer, not from a posted event: posted events are
// delivered to the last one before anything else gets its turn.
void CThreadHighlighter::deliver()
{
    if (m_pDocument) {
        QElapsedTimer timer;
        timer.start();
        noteListeners();
        while (!m_queue.isEmpty() && timer.elapsed() < g_nSliceMs)
            deliverSome(m_queue.take(g_nResultsAtOnce));
    }
    m_bDelivering = false;
    if (m_pDocument && !m_queue.isEmpty() && !m_bDelivering.exchange(true))
        m_timerDeliver.start(0);
}

void CThreadHighlighter::deliverSome(const std::vector<SHighlightResult> &lst)
{
    QTextBlock block;
    int nLine = -1;
    int arrDelivered[] = {0, 0};
    uint nVersion = m_pDocument->version();
    bool bMarksLost = false;
    for (const SHighlightResult &result : lst) {
        if (result.nVersion != m_pDocument->version()) {
            bMarksLost = bMarksLost || result.kind == SHighlightResult::SelectedWord;
            continue;
        }
        if (result.nLine != nLine) {
            block = result.nLine == nLine + 1 && block.isValid()
                ? block.next()
                : m_pDocument->findBlockByNumber(result.nLine);
            nLine = result.nLine;
        }
        if (result.kind == SHighlightResult::Syntax) {
            ++arrDelivered[result.bFirst ? CLineStore::First : CLineStore::InOrder];
            deliverSyntax(result, block);
        } else if (!result.bSuperseded) {
            emit selectedChanged(result.nVersion, block, result.lstMarks);
        }
    }
    for (const CLineStore::Order order : {CLineStore::InOrder, CLineStore::First})
        m_pLines->confirm(nVersion, arrDelivered[order], order);
    if (bMarksLost)
        repeatSelection();
}

// If the document is the only listener, it is called directly. The signal needs a list for each
// line, which takes several times as long.
void CThreadHighlighter::deliverSyntax(const SHighlightResult &result, const QTextBlock &block)
{
    if (result.bSuperseded)
        return;
    QTextBlock(block).setUserState(result.nState);
    if (result.bKept)
        return; // The ranges come when the block is laid out.
    const QVector<QTextLayout::FormatRange> lst = formatsOf(result.lstRanges);
    if (m_bOthersListen)
        emit blockFormatChanged(result.nVersion, block, lst.toList());
    else
        m_pDocument->setSyntaxRanges(result.nVersion, block, lst);
}

// An edit made marks void that were on their way after their pass had ended.
void CThreadHighlighter::repeatSelection()
{
    {
        const std::lock_guard<std::mutex> locker(m_mutex);
        m_bSelectionWanted = true;
        m_bSelectionRestart = true;
    }
    startIfIdle();
}
