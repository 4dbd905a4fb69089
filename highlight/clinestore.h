#pragma once

#include "highlight/ccompacttext.h"
#include "highlight/cstoredtext.h"
#include "highlight/highlightline.h"

#include <QString>
#include <atomic>
#include <deque>
#include <functional>
#include <mutex>
#include <optional>
#include <vector>

// A copy of a document's lines for the highlighter's thread, with the highlighting of each line as
// far as it is known. Qt's own blocks are rebalanced by every edit and cannot be read by another
// thread.
//
// A line is stale when its result has to be computed (again): its text, the state it starts with or
// the rules changed, or an edit made its result void before it arrived. Lines that are not stale
// have a result that belongs to their text and to the stored state of the line before.
//
// The state of a line may be known before its result is: a worker that is asked for lines far ahead
// computes the states up to them and comes back for the results. Up to the first line whose state
// is unknown, all states are those of the current text.
//
// In a sparse store the ranges of lines stay here, packed, until somebody asks for them: a block of
// Qt needs many times as much memory for them. A line is held once its block has its ranges itself;
// its results go to the document. The ranges kept here are the last ones that the document was
// told.
//
// The GUI thread edits, and one worker computes. Each call takes the lock by itself. Lines count
// from 0.
class CLineStore
{
public:
    struct SLine
    {
        QString strText;
        int nState; // at its end, as last computed; -1 when never
        bool bStale;
        bool bUnknown;
        bool bHeld;
    };
    // Which lines a worker asks for.
    enum Which { Any, Stale, StaleOrHeld };
    // Successive lines, the text of each copied.
    struct SBatch
    {
        int nFirst = 0;
        int nStateBefore = -1; // the state that the first line starts with
        // empty when nothing is left, or when the version is not the current one
        std::vector<SLine> lst;
    };
    // Results of lines that can be seen come before the others.
    enum Order { InOrder, First };
    struct SDone
    {
        int nLine = 0;
        int nState = 0;
        int nPacked = 0; // Bytes of its ranges; see packRanges().
        bool bSend = true; // Set by commit(): the ranges are not kept here.
    };
    // What hold() found.
    enum class Ranges {
        Held, // The block has them, or gets them by each result.
        Kept, // They are in this result.
        None, // There is no result yet, or the line has changed since.
    };

    CLineStore();

    uint version() const { return m_nVersion.load(std::memory_order_acquire); }
    int count() const;
    QString text(int nLine) const;
    // The whole text as it is now. Copies no character.
    CStoredText snapshot() const;

    // For the GUI thread. replace() and touch() make results on their way void and begin a new
    // version.

    // Replaces nOld lines by nNew others, which nextLine gives one after the other.
    void replace(int nFirst, int nOld, int nNew, const std::function<QString()> &nextLine);
    void touch();
    void markAllStale();
    // Whether there was an edit since a pass was last finished.
    bool isEdited() const;
    // Whether every line has its result and all of them have arrived.
    bool isComplete() const;
    // Notes that the nCount results committed first in that order have arrived; does nothing when
    // the version is old.
    void confirm(uint nVersion, int nCount, Order order = InOrder);

    // Begins or ends keeping the ranges of lines that are added. Lines that exist at the beginning
    // count as held.
    void setSparse(bool bSparse);
    bool isSparse() const { return m_bSparse.load(std::memory_order_acquire); }
    // Whether there may be a line that is not held.
    bool mayKeepRanges() const { return m_bMayKeep.load(std::memory_order_acquire); }
    // From now on the block holds its ranges; those that were kept are given to the caller.
    Ranges hold(int nLine, std::vector<SHighlightRange> *pRanges);
    // The answer of hold(), without changing anything.
    std::optional<std::vector<SHighlightRange>> keptRanges(int nLine) const;
    // Drops all ranges that are kept; tells which lines are held.
    std::vector<int> forgetRanges();

    // For the worker.

    // The next group of wanted lines from nFrom on, up to one batch.
    SBatch fetch(uint nVersion, int nFrom, Which which) const;
    // The stale lines among those from nFirst to nLast, up to one batch. Empty when there is none,
    // or when the state that they begin with is not known yet.
    SBatch fetchAmong(uint nVersion, int nFirst, int nLast) const;
    // The next lines whose states are unknown, up to one batch, if fetchAmong() waits for the
    // states before its lines. Empty when it waits for nothing.
    SBatch fetchBefore(uint nVersion, int nFirst, int nLast) const;
    // Records new states; the line after a changed state becomes stale. False, and nothing is
    // recorded, when the version or the generation is not the current one. Afterwards the results
    // count as on their way: in order, or before all others. A sparse store keeps the ranges of
    // lines that are not held, packed end to end, unless bSendAll is true.
    bool commit(uint nVersion, uint nGeneration, std::vector<SDone> *pDone,
                const std::vector<uchar> &packed, bool bSendAll, Order order = InOrder);
    // The same without results: the lines stay stale.
    bool commitStates(uint nVersion, uint nGeneration, const std::vector<SDone> &lstDone);
    void finishPass(uint nVersion);
    // Grows with every markAllStale(): a result of older rules does not count.
    uint generation() const { return m_nGeneration.load(std::memory_order_acquire); }

private:
    struct SEntry
    {
        uint nLength;
        int nState;
        uint nPacked : 28; // Bytes of the ranges that are kept.
        uint bStale : 1;
        uint bUnknown : 1; // The state has to be computed again; such a line is stale, too.
        uint bHeld : 1;
        uint bKept : 1;
    };
    // A run of lines, their texts end to end.
    struct SChunk
    {
        CCompactText text;
        std::vector<SEntry> lst;
        std::vector<uchar> packed;
        int nStale = 0;
        int nUnknown = 0;
        int nHeld = 0;

        int offset(int nLine) const;
        void insert(int nLine, int nCount, const std::function<QString()> &nextLine);
        void remove(int nLine, int nCount);
        SChunk takeTail(int nLine);
        int packedOffset(int nLine) const;
        void keep(int nLine, const uchar *pBytes, int nBytes);
        std::vector<SHighlightRange> kept(int nLine) const;
        void drop(int nLine);
        void setHeld(int nLine);
        void setStale(int nLine, bool bStale);
        void setUnknown(int nLine, bool bUnknown);
    };
    struct SPosition
    {
        int nChunk = 0;
        int nLine = 0; // within the chunk
    };

    SPosition locate(int nLine) const;
    // The lines that a search looks for, and whether a chunk has any.
    struct SWanted
    {
        bool (*isWanted)(const SEntry &entry);
        bool (*hasAny)(const SChunk &chunk);
    };
    static const SWanted g_any;
    static const SWanted g_stale;
    static const SWanted g_staleOrHeld;
    static const SWanted g_unknown;
    SBatch batchAt(int nLine, const SWanted &wanted, int nEnd) const;
    int nextIn(int nFrom, int nEnd, const SWanted &wanted) const;
    bool isCurrent(uint nVersion, uint nGeneration) const;
    void recordState(const SDone &done);
    bool recordRanges(const SDone &done, const uchar *pPacked, bool bSendAll);
    bool isAnyHeld(int nFirst, int nCount) const;
    void holdLines(int nFirst, int nCount);
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
    std::atomic_bool m_bSparse {false};
    std::atomic_bool m_bMayKeep {false};
    std::atomic<uint> m_nVersion {0};
    std::atomic<uint> m_nGeneration {0};
    // The chunk found last and the number of its first line: look-ups mostly go forward.
    mutable int m_nHintChunk = 0;
    mutable int m_nHintFirst = 0;
};
