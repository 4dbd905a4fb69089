#include "highlight/clinestore.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

constexpr int g_nLinesPerChunk = 256;
constexpr int g_nMaxLinesPerChunk = 2 * g_nLinesPerChunk;
// The number of lines that the worker copies under the lock, for which an edit may have to wait.
constexpr int g_nLinesPerBatch = 32;
constexpr int g_nCharsPerBatch = 16 * 1024;
// Of more new lines only the first can count as held. The blocks of the others are new and ask for
// their ranges when they are laid out.
constexpr int g_nLinesLaidOutAgain = 64;

} // namespace

// A document without text has one empty line.
CLineStore::CLineStore() : m_nCount(1)
{
    m_lstChunks.emplace_back(
        1, [] { return QString(); });
}

int CLineStore::count() const
{
    const std::lock_guard<std::mutex> locker(m_mutex);
    return m_nCount;
}

QString CLineStore::text(int nLine) const
{
    const std::lock_guard<std::mutex> locker(m_mutex);
    const SPosition at = locate(nLine);
    const CLineChunk &chunk = m_lstChunks[at.nChunk];
    return chunk.text(at.nLine);
}

CStoredText CLineStore::snapshot() const
{
    const std::lock_guard<std::mutex> locker(m_mutex);
    CStoredText text;
    for (const CLineChunk &chunk : m_lstChunks)
        chunk.appendTo(&text);
    return text;
}

void CLineStore::replace(int nFirst, int nOld, int nNew, const std::function<QString()> &nextLine)
{
    const std::lock_guard<std::mutex> locker(m_mutex);
    voidResultsInFlight();
    // The line after the edit was computed with this state, and stays valid if the state is the
    // same again.
    const SPosition last = locate(nFirst + nOld - 1);
    const int nStateAtEnd = m_lstChunks[last.nChunk].entry(last.nLine).nState;
    // Qt keeps its first block with its formats.
    const bool bFirstHeld = isAnyHeld(nFirst, 1);
    const bool bHeld = nNew <= g_nLinesLaidOutAgain && isAnyHeld(nFirst, nOld);
    insert(nFirst + nOld, nNew, nextLine);
    remove(nFirst, nOld);
    if (bHeld || bFirstHeld)
        holdLines(nFirst, bHeld ? nNew : 1);
    const SPosition end = locate(nFirst + nNew - 1);
    m_lstChunks[end.nChunk].setState(end.nLine, nStateAtEnd);
    m_bEdited = true;
    m_nVersion.fetch_add(1, std::memory_order_release);
}

void CLineStore::touch()
{
    const std::lock_guard<std::mutex> locker(m_mutex);
    voidResultsInFlight();
    m_bEdited = true;
    m_nVersion.fetch_add(1, std::memory_order_release);
}

void CLineStore::markAllStale()
{
    const std::lock_guard<std::mutex> locker(m_mutex);
    for (CLineChunk &chunk : m_lstChunks)
        chunk.markAllStale();
    m_nGeneration.fetch_add(1, std::memory_order_release);
}

bool CLineStore::isEdited() const
{
    const std::lock_guard<std::mutex> locker(m_mutex);
    return m_bEdited;
}

bool CLineStore::isComplete() const
{
    const std::lock_guard<std::mutex> locker(m_mutex);
    return m_arrInFlight[InOrder].empty() && m_arrInFlight[First].empty()
        && std::all_of(m_lstChunks.begin(), m_lstChunks.end(),
                       [](const CLineChunk &chunk) { return !chunk.hasStale(); });
}

void CLineStore::confirm(uint nVersion, int nCount, Order order)
{
    const std::lock_guard<std::mutex> locker(m_mutex);
    if (nVersion == version()) {
        std::deque<int> &lst = m_arrInFlight[order];
        lst.erase(lst.begin(), lst.begin() + nCount);
    }
}

const CLineStore::SWanted CLineStore::g_any = {
    [](const CLineChunk::SEntry &) { return true; },
    [](const CLineChunk &) { return true; },
};

const CLineStore::SWanted CLineStore::g_stale = {
    [](const CLineChunk::SEntry &entry) { return entry.bStale != 0; },
    [](const CLineChunk &chunk) { return chunk.hasStale(); },
};

const CLineStore::SWanted CLineStore::g_staleOrHeld = {
    [](const CLineChunk::SEntry &entry) { return entry.bStale || entry.bHeld; },
    [](const CLineChunk &chunk) { return chunk.hasStale() || chunk.hasHeld(); },
};

const CLineStore::SWanted CLineStore::g_unknown = {
    [](const CLineChunk::SEntry &entry) { return entry.bUnknown != 0; },
    [](const CLineChunk &chunk) { return chunk.hasUnknown(); },
};

// Gives the first wanted line from nFrom up to nEnd, or nEnd if there is none.
int CLineStore::nextIn(int nFrom, int nEnd, const SWanted &wanted) const
{
    int nLine = nFrom;
    if (nLine >= nEnd)
        return nEnd;
    for (SPosition at = locate(nLine); nLine < nEnd; at = {at.nChunk + 1, 0}) {
        const CLineChunk &chunk = m_lstChunks[at.nChunk];
        if (!wanted.hasAny(chunk)) {
            nLine += chunk.count() - at.nLine;
            continue;
        }
        for (; at.nLine < chunk.count() && nLine < nEnd; ++at.nLine, ++nLine)
            if (wanted.isWanted(chunk.entry(at.nLine)))
                return nLine;
    }
    return nEnd;
}

// Gives successive wanted lines of one chunk.
CLineStore::SBatch CLineStore::batchAt(int nLine, const SWanted &wanted, int nEnd) const
{
    SBatch batch;
    batch.nFirst = nLine;
    if (nLine > 0) {
        const SPosition before = locate(nLine - 1);
        batch.nStateBefore = m_lstChunks[before.nChunk].entry(before.nLine).nState;
    }
    const SPosition at = locate(nLine);
    const CLineChunk &chunk = m_lstChunks[at.nChunk];
    const int nLast =
        std::min({chunk.count(), at.nLine + g_nLinesPerBatch, at.nLine + nEnd - nLine});
    int nOffset = chunk.offset(at.nLine);
    int nChars = 0;
    for (int n = at.nLine; n < nLast && nChars < g_nCharsPerBatch; ++n) {
        const CLineChunk::SEntry &entry = chunk.entry(n);
        if (!wanted.isWanted(entry))
            break;
        batch.lst.push_back({chunk.text(n, nOffset), entry.nState, entry.bStale != 0,
                             entry.bUnknown != 0, entry.bHeld != 0});
        nOffset += int(entry.nLength);
        nChars += int(entry.nLength);
    }
    return batch;
}

CLineStore::SBatch CLineStore::fetch(uint nVersion, int nFrom, Which which) const
{
    const SWanted &wanted = which == Any ? g_any : which == Stale ? g_stale : g_staleOrHeld;
    const std::lock_guard<std::mutex> locker(m_mutex);
    if (nVersion != version() || nFrom >= m_nCount)
        return SBatch();
    const int nLine = nextIn(nFrom, m_nCount, wanted);
    return nLine < m_nCount ? batchAt(nLine, wanted, m_nCount) : SBatch();
}

CLineStore::SBatch CLineStore::fetchAmong(uint nVersion, int nFirst, int nLast) const
{
    const std::lock_guard<std::mutex> locker(m_mutex);
    const int nEnd = std::min(nLast + 1, m_nCount);
    if (nVersion != version())
        return SBatch();
    const int nLine = nextIn(std::max(nFirst, 0), nEnd, g_stale);
    if (nLine >= nEnd || nextIn(0, nLine, g_unknown) < nLine)
        return SBatch();
    return batchAt(nLine, g_stale, nEnd);
}

CLineStore::SBatch CLineStore::fetchBefore(uint nVersion, int nFirst, int nLast) const
{
    const std::lock_guard<std::mutex> locker(m_mutex);
    if (nVersion != version())
        return SBatch();
    const int nEnd = std::min(nLast + 1, m_nCount);
    const int nStale = nextIn(std::max(nFirst, 0), nEnd, g_stale);
    if (nStale >= nEnd)
        return SBatch();
    const int nLine = nextIn(0, nStale, g_unknown);
    return nLine < nStale ? batchAt(nLine, g_unknown, nStale) : SBatch();
}

bool CLineStore::isCurrent(uint nVersion, uint nGeneration) const
{
    return nVersion == version() && nGeneration == generation();
}

// The line after a changed state has to be computed again.
void CLineStore::recordState(const SDone &done)
{
    const SPosition at = locate(done.nLine);
    CLineChunk &chunk = m_lstChunks[at.nChunk];
    const bool bChanged = chunk.entry(at.nLine).nState != done.nState;
    chunk.setState(at.nLine, done.nState);
    chunk.setUnknown(at.nLine, false);
    if (bChanged && done.nLine + 1 < m_nCount) {
        const SPosition next = locate(done.nLine + 1);
        m_lstChunks[next.nChunk].setStale(next.nLine, true);
        m_lstChunks[next.nChunk].setUnknown(next.nLine, true);
    }
}

bool CLineStore::commit(uint nVersion, uint nGeneration, std::vector<SDone> *pDone,
                        const std::vector<uchar> &packed, bool bSendAll, Order order)
{
    const std::lock_guard<std::mutex> locker(m_mutex);
    if (!isCurrent(nVersion, nGeneration))
        return false;
    const uchar *pPacked = packed.data();
    for (SDone &done : *pDone) {
        recordState(done);
        const SPosition at = locate(done.nLine);
        m_lstChunks[at.nChunk].setStale(at.nLine, false);
        m_arrInFlight[order].push_back(done.nLine);
        done.bSend = recordRanges(done, pPacked, bSendAll);
        pPacked += done.nPacked;
    }
    return true;
}

bool CLineStore::commitStates(uint nVersion, uint nGeneration, const std::vector<SDone> &lstDone)
{
    const std::lock_guard<std::mutex> locker(m_mutex);
    if (!isCurrent(nVersion, nGeneration))
        return false;
    for (const SDone &done : lstDone)
        recordState(done);
    return true;
}

void CLineStore::finishPass(uint nVersion)
{
    const std::lock_guard<std::mutex> locker(m_mutex);
    if (nVersion == version())
        m_bEdited = false;
}

CLineStore::SPosition CLineStore::locate(int nLine) const
{
    while (nLine < m_nHintFirst) {
        --m_nHintChunk;
        m_nHintFirst -= m_lstChunks[m_nHintChunk].count();
    }
    while (nLine - m_nHintFirst >= m_lstChunks[m_nHintChunk].count()) {
        m_nHintFirst += m_lstChunks[m_nHintChunk].count();
        ++m_nHintChunk;
    }
    return {m_nHintChunk, nLine - m_nHintFirst};
}

void CLineStore::voidResultsInFlight()
{
    for (std::deque<int> &lst : m_arrInFlight) {
        for (const int nLine : lst) {
            const SPosition at = locate(nLine);
            m_lstChunks[at.nChunk].setStale(at.nLine, true);
        }
        lst.clear();
    }
}

void CLineStore::remove(int nFirst, int nCount)
{
    const SPosition at = locate(nFirst);
    int nChunk = at.nChunk;
    int nLine = at.nLine;
    for (int nLeft = nCount; nLeft > 0; ++nChunk, nLine = 0) {
        CLineChunk &chunk = m_lstChunks[nChunk];
        const int nHere = std::min(nLeft, chunk.count() - nLine);
        chunk.remove(nLine, nHere);
        nLeft -= nHere;
    }
    m_nCount -= nCount;
    const auto begin = m_lstChunks.begin() + at.nChunk;
    const auto end = m_lstChunks.begin() + nChunk;
    m_lstChunks.erase(
        std::remove_if(begin, end, [](const CLineChunk &chunk) { return chunk.isEmpty(); }), end);
    m_nHintChunk = m_nHintFirst = 0;
}

// Inserts after an existing line, so nFirst is at least 1.
void CLineStore::insert(int nFirst, int nCount, const std::function<QString()> &nextLine)
{
    SPosition at = locate(nFirst - 1);
    ++at.nLine;
    m_nCount += nCount;
    if (m_lstChunks[at.nChunk].count() + nCount <= g_nMaxLinesPerChunk) {
        m_lstChunks[at.nChunk].insert(at.nLine, nCount, nextLine);
        return;
    }
    splitBehind(at);
    std::vector<CLineChunk> lstNew;
    for (int n = 0; n < nCount; n += g_nLinesPerChunk) {
        const int nHere = std::min(g_nLinesPerChunk, nCount - n);
        lstNew.emplace_back(nHere, nextLine);
    }
    m_lstChunks.insert(m_lstChunks.begin() + at.nChunk + 1, std::make_move_iterator(lstNew.begin()),
                       std::make_move_iterator(lstNew.end()));
}

// Moves the rest of the chunk after that place to a new chunk.
void CLineStore::splitBehind(const SPosition &at)
{
    CLineChunk &chunk = m_lstChunks[at.nChunk];
    if (at.nLine == chunk.count())
        return;
    CLineChunk tail = chunk.takeTail(at.nLine);
    m_lstChunks.insert(m_lstChunks.begin() + at.nChunk + 1, std::move(tail));
}
