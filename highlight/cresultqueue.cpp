#include "highlight/cresultqueue.h"

#include <algorithm>
#include <chrono>
#include <iterator>
#include <utility>

namespace {

constexpr size_t g_nUsualBound = 2048;
constexpr std::chrono::milliseconds g_patience(20);

} // namespace

CResultQueue::CResultQueue() : m_nBound(g_nUsualBound) { }

bool CResultQueue::push(std::vector<SHighlightResult> &lst,
                        const std::function<bool()> &isCancelled)
{
    std::unique_lock<std::mutex> locker(m_mutex);
    while (m_lst.size() >= m_nBound && !isCancelled()) {
        const size_t nBefore = m_lst.size();
        if (m_roomMade.wait_for(locker, g_patience) == std::cv_status::timeout
            && m_lst.size() >= nBefore) {
            // Nobody reads, so the room is doubled. That keeps the total of the waiting time short.
            m_nBound *= 2;
        }
    }
    const bool bWasEmpty = m_lst.empty();
    std::move(lst.begin(), lst.end(), std::back_inserter(m_lst));
    return bWasEmpty;
}

void CResultQueue::pushFirst(std::vector<SHighlightResult> &lst)
{
    const std::lock_guard<std::mutex> locker(m_mutex);
    for (SHighlightResult &waiting : m_lst) {
        const bool bNewer =
            std::any_of(lst.begin(), lst.end(), [&](const SHighlightResult &result) {
                return result.nLine == waiting.nLine && result.kind == waiting.kind;
            });
        waiting.bSuperseded = waiting.bSuperseded || bNewer;
    }
    for (SHighlightResult &result : lst) {
        result.bFirst = true;
        m_lstFirst.push_back(std::move(result));
    }
}

std::vector<SHighlightResult> CResultQueue::take(int nMax)
{
    const std::lock_guard<std::mutex> locker(m_mutex);
    std::vector<SHighlightResult> lst;
    for (std::deque<SHighlightResult> *pFrom : {&m_lstFirst, &m_lst}) {
        const size_t nHere = std::min(pFrom->size(), size_t(nMax) - lst.size());
        const auto end = pFrom->begin() + std::ptrdiff_t(nHere);
        std::move(pFrom->begin(), end, std::back_inserter(lst));
        pFrom->erase(pFrom->begin(), end);
    }
    m_nBound = g_nUsualBound;
    m_roomMade.notify_all();
    return lst;
}

bool CResultQueue::isEmpty() const
{
    const std::lock_guard<std::mutex> locker(m_mutex);
    return m_lst.empty() && m_lstFirst.empty();
}

void CResultQueue::beginFirst()
{
    const std::lock_guard<std::mutex> locker(m_mutex);
    m_bFirstEnded = false;
}

void CResultQueue::endFirst()
{
    {
        const std::lock_guard<std::mutex> locker(m_mutex);
        if (std::exchange(m_bFirstEnded, true))
            return;
    }
    m_firstEnded.notify_all();
}

void CResultQueue::waitForFirst(int nMs)
{
    std::unique_lock<std::mutex> locker(m_mutex);
    m_firstEnded.wait_for(locker, std::chrono::milliseconds(nMs), [this] { return m_bFirstEnded; });
}

void CResultQueue::wake()
{
    m_roomMade.notify_all();
}
