#pragma once

#include "editor/linesearch.h"
#include "findinfiles/cbytefilter.h"
#include "findinfiles/cnamepatterns.h"
#include "findinfiles/findquery.h"

#include <QStringList>

#include <atomic>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <vector>

// One search, shared by the threads that work on it and the reader of its results. The threads run
// walk() once and work() any number of times. Thread-safe.
//
// Both queues (paths to be searched, matches to be taken) are bounded: a thread that is too fast
// waits.
class CSearchJob
{
public:
    CSearchJob(const SFindQuery &query, int nWorkers);

    void walk();
    void work();

    // Ends all threads soon.
    void cancel();

    // Takes about nMatches matches, of whole files, with the counts of this moment. False once the
    // search is over and everything is taken.
    bool take(int nMatches, QVector<SFileMatches> *pFound, SFindCounts *pCounts);

private:
    using Paths = QStringList;

    bool addPath(const QString &strPath);
    void addChunk(Paths paths);
    bool nextChunk(Paths *pPaths);
    void searchFile(const CLineSearch &search, const QString &strPath, QByteArray *pData);
    void addFound(SFileMatches found);

    const SFindQuery m_query;
    const CNamePatterns m_names;
    const CByteFilter m_filter;
    std::atomic<bool> m_bCancel = false;

    mutable std::mutex m_mutex; // Guards all members below.
    std::condition_variable m_changed;
    std::deque<Paths> m_chunks;
    bool m_bWalking = true;
    int m_nWorkers;
    std::deque<SFileMatches> m_found;
    int m_nWaiting = 0; // Matches in m_found.
    SFindCounts m_counts;

    Paths m_gathered; // Only walk() uses it.
};
