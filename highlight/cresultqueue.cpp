#include "highlight/cresultqueue.h"

#include <algorithm>
#include <chrono>
#include <iterator>

namespace {

constexpr size_t nUsualBound = 2048;
constexpr std::chrono::milliseconds patience(20);

} // namespace

CResultQueue::CResultQueue() : m_nBound(nUsualBound) { }

bool CResultQueue::push(std::vector<HighlightResult> &lst, const std::function<bool()> &isCancelled)
{
    std::unique_lock<std::mutex> locker(m_mutex);
    while (m_lst.size() >= m_nBound && !isCancelled()) {
        const size_t nBefore = m_lst.size();
        if (m_roomMade.wait_for(locker, patience) == std::cv_status::timeout
            && m_lst.size() >= nBefore) {
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
    const std::lock_guard<std::mutex> locker(m_mutex);
    const auto end = m_lst.begin() + std::ptrdiff_t(std::min(m_lst.size(), size_t(nMax)));
    std::vector<HighlightResult> lst(std::make_move_iterator(m_lst.begin()),
                                     std::make_move_iterator(end));
    m_lst.erase(m_lst.begin(), end);
    m_nBound = nUsualBound;
    m_roomMade.notify_all();
    return lst;
}

bool CResultQueue::isEmpty() const
{
    const std::lock_guard<std::mutex> locker(m_mutex);
    return m_lst.empty();
}

void CResultQueue::wake()
{
    m_roomMade.notify_all();
}
