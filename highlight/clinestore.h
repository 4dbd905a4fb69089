#pragma once

#include "highlight/ccompacttext.h"

#include <QString>
#include <atomic>
#include <deque>
#include <functional>
#include <mutex>
#include <vector>

// A copy of a document's lines for the highlighter's thread, with what is known of each line's
// highlighting. Qt's own blocks are rebalanced by every edit and cannot be read by another thread.
//
// A line is stale when its result has to be computed (again): its text, the state it starts with or
// the rules changed, or its result was under way when an edit made it void. Lines that are not
// stale have a result that belongs to their text and to the stored state of the line before.
//
// The state of a line may be known before its result is: a worker that is asked for lines far ahead
// computes the states up to them and comes back for the results. States are what the text makes
// them up to the first line whose state is unknown.
//
// The GUI thread edits, one worker computes; each call takes the lock for itself. Lines count from
// 0.
class CLineStore
{
public:
    struct SLine
    {
        QString strText;
        int nState; // at its end, as last computed; -1 when never
        bool bStale;
        bool bUnknown;
    };
    // Successive lines, the text of each copied.
    struct SBatch
    {
        int nFirst = 0;
        int nStateBefore = -1; // the state that the first line starts with
        std::vector<SLine> lst; // empty: there is nothing left, or the version is another one
    };
    // Results of lines that can be seen come before the others.
    enum Order { InOrder, First };
    struct SDone
    {
        int nLine;
        int nState;
    };

    CLineStore();

    uint version() const { return m_nVersion.load(std::memory_order_acquire); }
    int count() const;
    QString text(int nLine) const;

    // The GUI thread's part. replace() and touch() make results under way void and begin a version.

    // Puts nNew lines, asked from nextLine one after the other, in the place of nOld lines.
    void replace(int nFirst, int nOld, int nNew, const std::function<QString()> &nextLine);
    void touch();
    void markAllStale();
    // Whether there was an edit since a pass was last finished.
    bool isEdited() const;
    // Whether every line has its result and all of them have arrived.
    bool isComplete() const;
    // The nCount results that were committed first in that order have arrived, or nothing when the
    // version is old.
    void confirm(uint nVersion, int nCount, Order order = InOrder);

    // The worker's part.

    // The next lines from nFrom on: those of the first group of stale ones, or without bOnlyStale
    // whatever comes next.
    SBatch fetch(uint nVersion, int nFrom, bool bOnlyStale) const;
    // The stale lines among those from nFirst to nLast, up to one batch. Empty when there is none,
    // or when the state that they begin with is not known yet.
    SBatch fetchAmong(uint nVersion, int nFirst, int nLast) const;
    // When fetchAmong() waits for the states in front of it: the next lines whose states are
    // unknown, up to one batch. Empty when it waits for nothing.
    SBatch fetchBefore(uint nVersion, int nFirst, int nLast) const;
    // Records new states; a line behind one whose state changed becomes stale. False, and nothing
    // is recorded, when the version or the generation is not the current one. The results are on
    // their way: in order, or before all others.
    bool commit(uint nVersion, uint nGeneration, const std::vector<SDone> &lstDone,
                Order order = InOrder);
    // The same without results: the lines stay stale.
    bool commitStates(uint nVersion, uint nGeneration, const std::vector<SDone> &lstDone);
    void finishPass(uint nVersion);
    // Grows with every markAllStale(): a result of older rules does not count.
    uint generation() const { return m_nGeneration.load(std::memory_order_acquire); }

private:
    struct SEntry
    {
        uint nLength : 30;
        uint bStale : 1;
        uint bUnknown : 1; // The state has to be computed anew; such a line is stale, too.
        int nState;
    };
    // A run of lines, their texts end to end.
    struct SChunk
    {
        CCompactText text;
        std::vector<SEntry> lst;
        int nStale = 0;
        int nUnknown = 0;

        int offset(int nLine) const;
        void insert(int nLine, int nCount, const std::function<QString()> &nextLine);
        void remove(int nLine, int nCount);
        void setStale(int nLine, bool bStale);
        void setUnknown(int nLine, bool bUnknown);
    };
    struct SPosition
    {
        int nChunk = 0;
        int nLine = 0; // within the chunk
    };

    SPosition locate(int nLine) const;
    using Wanted = bool (*)(const SEntry &);
    static bool isStale(const SEntry &entry);
    static bool isUnknown(const SEntry &entry);
    static bool isAny(const SEntry &entry);
    SBatch batchAt(int nLine, Wanted isWanted, int nEnd) const;
    int nextIn(int nFrom, int nEnd, int SChunk::*pCount, Wanted isWanted) const;
    bool isCurrent(uint nVersion, uint nGeneration) const;
    void recordState(const SDone &done);
    void voidResultsUnderWay();
    void remove(int nFirst, int nCount);
    void insert(int nFirst, int nCount, const std::function<QString()> &nextLine);
    void splitBehind(const SPosition &at);

    mutable std::mutex m_mutex;
    std::vector<SChunk> m_lstChunks;
    int m_nCount = 0;
    // Lines whose results were committed and not yet confirmed, for each order.
    std::deque<int> m_arrUnderWay[2];
    bool m_bEdited = true;
    std::atomic<uint> m_nVersion {0};
    std::atomic<uint> m_nGeneration {0};
    // The chunk found last and the number of its first line: look-ups mostly go forward.
    mutable int m_nHintChunk = 0;
    mutable int m_nHintFirst = 0;
};
