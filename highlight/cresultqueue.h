#pragma once

#include "highlight/highlightline.h"

#include <QList>
#include <QTextLayout>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <vector>

// What the highlighter's thread found out about one line.
struct SHighlightResult
{
    enum Kind { Syntax, SelectedWord };

    Kind kind;
    uint nVersion;
    int nLine;
    int nState; // The block's new user state. Only for syntax results.
    std::vector<SHighlightRange> lstRanges; // Only for syntax results.
    QList<QTextLayout::FormatRange> lstMarks; // Only for the selected word.
    bool bKept = false; // The ranges are in the store; see CLineStore::commit().
    bool bFirst = false; // See CResultQueue::pushFirst().
    bool bSuperseded = false; // A newer result of the line has overtaken it.
};

// Results on their way from the worker to the GUI thread. The queue is bounded, because a worker
// faster than the GUI would bury it. But it never blocks for good: push() waits only for a moment
// for a reader that does not read, such as a GUI thread that waits for the worker to end.
class CResultQueue
{
public:
    CResultQueue();

    // Worker: appends, after waiting for room. Waits no longer once isCancelled answers true; the
    // results go in all the same. True when the queue was empty.
    bool push(std::vector<SHighlightResult> &lst, const std::function<bool()> &isCancelled);
    // Worker: appends to the results that come before all others, and does not wait. Older results
    // of these lines in the queue are superseded.
    void pushFirst(std::vector<SHighlightResult> &lst);
    // GUI thread: takes the results of pushFirst(), then the oldest others, at most nMax in all.
    std::vector<SHighlightResult> take(int nMax);
    bool isEmpty() const;

    // GUI thread: the worker begins to compute what can be seen.
    void beginFirst();
    // Worker: has pushed the results of all that can be seen.
    void endFirst();
    // GUI thread: waits for endFirst(), at most that long.
    void waitForFirst(int nMs);

    // Makes a waiting push() ask isCancelled again.
    void wake();

private:
    mutable std::mutex m_mutex;
    std::condition_variable m_roomMade;
    std::condition_variable m_firstEnded;
    bool m_bFirstEnded = true;
    std::deque<SHighlightResult> m_lstFirst;
    std::deque<SHighlightResult> m_lst;
    size_t m_nBound;
};
