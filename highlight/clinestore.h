#pragma once

#include "highlight/clinechunk.h"
#include "highlight/cstoredtext.h"
#include "highlight/highlightline.h"

#include <QString>
#include <atomic>
#include <deque>
#include <functional>
#include <mutex>
#include <optional>
#include <vector>

// A copy of a document's lines for the highlighter's thread, with what is known of the highlighting
// of each line. The thread cannot read Qt's own blocks, because every edit rebalances them.
//
// A line is stale when its result has to be computed (again): its text, the state it starts with or
// the rules changed, or an edit made its result void before it arrived. Lines that are not stale
// have a result that belongs to their text and to the stored state of the line before.
//
// The state of a line may be known before its result: a worker that needs lines far ahead computes
// the states before them first, and the results later. All states before the first unknown one
// belong to the current text.
//
// A sparse store keeps the ranges of lines packed until somebody asks for them, because a block of
// Qt needs many times as much memory for them. A line is held once its block has the ranges; from
// then on its results go to the document. The ranges kept here are the last ones that the document
// was told.
//
// The GUI thread edits, and one worker computes. Each call locks by itself. Lines count from 0.
class CLineStore
{
public:
    struct SLine
    {
        QString strText;
        int nState; // At its end, as last computed; -1 if it never was.
        bool bStale;
        bool bUnknown;
        bool bHeld;
    };
    // The lines that a worker asks for.
    enum Which { Any, Stale, StaleOrHeld };
    // Successive lines with copies of their texts.
    struct SBatch
    {
        int nFirst = 0;
        int nStateBefore = -1; // The state that the first line starts with.
        // Empty if nothing is left or the version is not the current one.
        std::vector<SLine> lst;
    };
    // Results of lines that can be seen come before the others.
    enum Order { InOrder, First };
    struct SDone
    {
        int nLine = 0;
        int nState = 0;
        int nPacked = 0; // Bytes of its ranges; see packRanges().
        bool bSend = true; // Set by commit(). The ranges are not kept here, but sent.
    };
    // What hold() found.
    enum class Ranges {
        Held, // The block has them, or gets each result.
        Kept, // The call returns them.
        None, // There is no result yet, or the line has changed since.
    };

    CLineStore();

    uint version() const { return m_nVersion.load(std::memory_order_acquire); }
    int count() const;
    QString text(int nLine) const;
    // Gives the whole text without copying a character.
    CStoredText snapshot() const;

    // For the GUI thread. replace() and touch() begin a new version, and void the results in
    // flight.

    // Replaces nOld lines by nNew others, which nextLine gives in their order.
    void replace(int nFirst, int nOld, int nNew, const std::function<QString()> &nextLine);
    void touch();
    void markAllStale();
    // Whether there was an edit after the last finished pass.
    bool isEdited() const;
    // Whether every line has its result and all of them have arrived.
    bool isComplete() const;
    // Notes that the oldest nCount results of that order have arrived. Does nothing if the version
    // is not the current one.
    void confirm(uint nVersion, int nCount, Order order = InOrder);

    // Begins or ends keeping the ranges of new lines. Lines that exist at the beginning count as
    // held.
    void setSparse(bool bSparse);
    bool isSparse() const { return m_bSparse.load(std::memory_order_acquire); }
    // Whether any line may not be held.
    bool mayKeepRanges() const { return m_bMayKeep.load(std::memory_order_acquire); }
    // The block holds its ranges from now on. The caller gets those that were kept.
    Ranges hold(int nLine, std::vector<SHighlightRange> *pRanges);
    // Gives the ranges that are kept, and changes nothing.
    std::optional<std::vector<SHighlightRange>> keptRanges(int nLine) const;
    // Drops all ranges that are kept. Returns the lines that are held.
    std::vector<int> forgetRanges();

    // For the worker.

    // Gives the next group of wanted lines from nFrom on, at most one batch.
    SBatch fetch(uint nVersion, int nFrom, Which which) const;
    // Gives the stale lines from nFirst to nLast, at most one batch. Empty if there are none, or if
    // the state before them is unknown.
    SBatch fetchAmong(uint nVersion, int nFirst, int nLast) const;
    // Gives the next lines with unknown states if fetchAmong() waits for them, at most one batch.
    SBatch fetchBefore(uint nVersion, int nFirst, int nLast) const;
    // Records new states. The line after a changed state becomes stale. The results are then in
    // flight until confirm(). A sparse store keeps the ranges of lines that are not held, unless
    // bSendAll is true; packed has the ranges of all lines end to end. False, without any change,
    // if the version or the generation is not the current one.
    bool commit(uint nVersion, uint nGeneration, std::vector<SDone> *pDone,
                const std::vector<uchar> &packed, bool bSendAll, Order order = InOrder);
    // The same without results, so the lines stay stale.
    bool commitStates(uint nVersion, uint nGeneration, const std::vector<SDone> &lstDone);
    void finishPass(uint nVersion);
    // Grows with every markAllStale(), so that results of older rules do not count.
    uint generation() const { return m_nGeneration.load(std::memory_order_acquire); }

private:
    struct SPosition
    {
        int nChunk = 0;
        int nLine = 0; // Within the chunk.
    };

    SPosition locate(int nLine) const;
    // The lines that a search looks for, and whether a chunk has any.
    struct SWanted
    {
        bool (*isWanted)(const CLineChunk::SEntry &entry);
        bool (*hasAny)(const CLineChunk &chunk);
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
    void voidResultsInFlight();
    void remove(int nFirst, int nCount);
    void insert(int nFirst, int nCount, const std::function<QString()> &nextLine);
    void splitBehind(const SPosition &at);

    mutable std::mutex m_mutex;
    std::vector<CLineChunk> m_lstChunks;
    int m_nCount = 0;
    // The lines whose results were committed but not confirmed, for each order.
    std::deque<int> m_arrInFlight[2];
    bool m_bEdited = true;
    std::atomic_bool m_bSparse {false};
    std::atomic_bool m_bMayKeep {false};
    std::atomic<uint> m_nVersion {0};
    std::atomic<uint> m_nGeneration {0};
    // The chunk found last and the number of its first line. Look-ups mostly go forward.
    mutable int m_nHintChunk = 0;
    mutable int m_nHintFirst = 0;
};
