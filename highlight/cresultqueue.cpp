#include "highlight/cresultqueue.h"

#include <QMutexLocker>
#include <algorithm>
#include <iterator>

namespace {

constexpr size_t nUsualBound = 2048;
constexpr unsigned long nPatienceMs = 20;

} // namespace

CResultQueue::CResultQueue() : m_nBound(nUsualBound) { }

bool CResultQueue::push(std::vector<HighlightResult> &lst, const std::function<bool()> &isCancelled)
{
    const QMutexLocker locker(&m_mutex);
    while (m_lst.size() >= m_nBound && !isCancelled()) {
        const size_t nBefore = m_lst.size();
        if (!m_roomMade.wait(&m_mutex, nPatienceMs) && m_lst.size() >= nBefore) {
            // Nobody reads. Doubling keeps the time lost in all to a few moments.
            m_nBound *= 2;
        }
    }
    const bool bWasEmpty = m_lst.empty();
    std::move(lst.begin(), lst.end(), std::back_inserter(m_lst));
    return bWasEmpty;
}

std::vector<HighlightResult> CResultQueue::take(int nMax)
{
    const QMutexLocker locker(&m_mutex);
    const auto end = m_lst.begin() + std::ptrdiff_t(std::min(m_lst.size(), size_t(nMax)));
    std::vector<HighlightResult> lst(std::make_move_iterator(m_lst.begin()),
                                     std::make_move_iterator(end));
    m_lst.erase(m_lst.begin(), end);
    m_nBound = nUsualBound;
    m_roomMade.wakeAll();
    return lst;
}

bool CResultQueue::isEmpty() const
{
    const QMutexLocker locker(&m_mutex);
    return m_lst.empty();
}

void CResultQueue::wake()
{
    m_roomMade.wakeAll();
}
