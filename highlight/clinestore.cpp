#include "highlight/clinestore.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

constexpr int g_nLinesPerChunk = 256;
constexpr int g_nMaxLinesPerChunk = 2 * g_nLinesPerChunk;
// The number of lines the worker copies at a time. An edit can wait for so few.
constexpr int g_nLinesPerBatch = 32;
constexpr int g_nCharsPerBatch = 16 * 1024;
// More changed lines than that are not noted one by one: an edit of one line leaves its block laid
// out, an edit of several does not.
constexpr int g_nLinesLaidOutAgain = 64;

} // namespace

int CLineStore::SChunk::offset(int nLine) const
{
    int nOffset = 0;
    for (int n = 0; n < nLine; ++n)
        nOffset += int(lst[n].nLength);
    return nOffset;
}

void CLineStore::SChunk::insert(int nLine, int nCount, const std::function<QString()> &nextLine)
{
    QString strNew;
    lst.insert(lst.begin() + nLine, nCount, SEntry {0, -1, 0, 1, 1, 0, 0});
    for (int n = nLine; n < nLine + nCount; ++n) {
        const QString strLine = nextLine();
        strNew += strLine;
        lst[n].nLength = uint(strLine.size());
    }
    text.insert(offset(nLine), strNew);
    nStale += nCount;
    nUnknown += nCount;
}

void CLineStore::SChunk::remove(int nLine, int nCount)
{
    const auto begin = lst.begin() + nLine;
    int nChars = 0;
    int nPacked = 0;
    for (auto it = begin; it != begin + nCount; ++it) {
        nChars += int(it->nLength);
        nPacked += int(it->nPacked);
        nStale -= int(it->bStale);
        nUnknown -= int(it->bUnknown);
        nHeld -= int(it->bHeld);
    }
    text.remove(offset(nLine), nChars);
    const auto bytes = packed.begin() + packedOffset(nLine);
    packed.erase(bytes, bytes + nPacked);
    lst.erase(begin, begin + nCount);
}

CLineStore::SChunk CLineStore::SChunk::takeTail(int nLine)
{
    SChunk tail;
    tail.text = text.part(offset(nLine));
    tail.lst.assign(lst.begin() + nLine, lst.end());
    tail.packed.assign(packed.begin() + packedOffset(nLine), packed.end());
    for (const SEntry &entry : tail.lst) {
        tail.nStale += int(entry.bStale);
        tail.nUnknown += int(entry.bUnknown);
        tail.nHeld += int(entry.bHeld);
    }
    remove(nLine, int(tail.lst.size()));
    return tail;
}

void CLineStore::SChunk::setStale(int nLine, bool bStale)
{
    nStale += int(bStale) - int(lst[nLine].bStale);
    lst[nLine].bStale = bStale;
}

void CLineStore::SChunk::setUnknown(int nLine, bool bUnknown)
{
    nUnknown += int(bUnknown) - int(lst[nLine].bUnknown);
    lst[nLine].bUnknown = bUnknown;
}

// A document without text has one empty line.
CLineStore::CLineStore() : m_lstChunks(1), m_nCount(1)
{
    m_lstChunks.front().insert(
        0, 1, [] { return QString(); });
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
    const SChunk &chunk = m_lstChunks[at.nChunk];
    return chunk.text.mid(chunk.offset(at.nLine), chunk.lst[at.nLine].nLength);
}

CStoredText CLineStore::snapshot() const
{
    const std::lock_guard<std::mutex> locker(m_mutex);
    CStoredText text;
    for (const SChunk &chunk : m_lstChunks) {
        std::vector<int> lstLengths;
        lstLengths.reserve(chunk.lst.size());
        for (const SEntry &entry : chunk.lst)
            lstLengths.push_back(int(entry.nLength));
        text.append(chunk.text, std::move(lstLengths));
    }
    return text;
}

void CLineStore::replace(int nFirst, int nOld, int nNew, const std::function<QString()> &nextLine)
{
    const std::lock_guard<std::mutex> locker(m_mutex);
    voidResultsUnderWay();
    // The line after the edit was computed with this state, and stays valid if the state is the
    // same again.
    const SPosition last = locate(nFirst + nOld - 1);
    const int nStateAtEnd = m_lstChunks[last.nChunk].lst[last.nLine].nState;
    // Qt keeps its first block with its formats.
    const bool bFirstHeld = isAnyHeld(nFirst, 1);
    const bool bHeld = nNew <= g_nLinesLaidOutAgain && isAnyHeld(nFirst, nOld);
    insert(nFirst + nOld, nNew, nextLine);
    remove(nFirst, nOld);
    if (bHeld || bFirstHeld)
        holdLines(nFirst, bHeld ? nNew : 1);
    const SPosition end = locate(nFirst + nNew - 1);
    m_lstChunks[end.nChunk].lst[end.nLine].nState = nStateAtEnd;
    m_bEdited = true;
    m_nVersion.fetch_add(1, std::memory_order_release);
}

void CLineStore::touch()
{
    const std::lock_guard<std::mutex> locker(m_mutex);
    voidResultsUnderWay();
    m_bEdited = true;
    m_nVersion.fetch_add(1, std::memory_order_release);
}

void CLineStore::markAllStale()
{
    const std::lock_guard<std::mutex> locker(m_mutex);
    for (SChunk &chunk : m_lstChunks) {
        for (SEntry &entry : chunk.lst) {
            entry.bStale = true;
            entry.bUnknown = true;
        }
        chunk.nStale = chunk.nUnknown = int(chunk.lst.size());
    }
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
    return m_arrUnderWay[InOrder].empty() && m_arrUnderWay[First].empty()
        && std::all_of(m_lstChunks.begin(), m_lstChunks.end(),
                       [](const SChunk &chunk) { return chunk.nStale == 0; });
}

void CLineStore::confirm(uint nVersion, int nCount, Order order)
{
    const std::lock_guard<std::mutex> locker(m_mutex);
    if (nVersion == version()) {
        std::deque<int> &lst = m_arrUnderWay[order];
        lst.erase(lst.begin(), lst.begin() + nCount);
    }
}

const CLineStore::SWanted CLineStore::g_any = {
    [](const SEntry &) { return true; },
    [](const SChunk &) { return true; },
};

const CLineStore::SWanted CLineStore::g_stale = {
    [](const SEntry &entry) { return entry.bStale != 0; },
    [](const SChunk &chunk) { return chunk.nStale > 0; },
};

const CLineStore::SWanted CLineStore::g_staleOrHeld = {
    [](const SEntry &entry) { return entry.bStale || entry.bHeld; },
    [](const SChunk &chunk) { return chunk.nStale > 0 || chunk.nHeld > 0; },
};

const CLineStore::SWanted CLineStore::g_unknown = {
    [](const SEntry &entry) { return entry.bUnknown != 0; },
    [](const SChunk &chunk) { return chunk.nUnknown > 0; },
};

// The first wanted line from nFrom up to nEnd; nEnd if there is none.
int CLineStore::nextIn(int nFrom, int nEnd, const SWanted &wanted) const
{
    int nLine = nFrom;
    if (nLine >= nEnd)
        return nEnd;
    for (SPosition at = locate(nLine); nLine < nEnd; at = {at.nChunk + 1, 0}) {
        const SChunk &chunk = m_lstChunks[at.nChunk];
        if (!wanted.hasAny(chunk)) {
            nLine += int(chunk.lst.size()) - at.nLine;
            continue;
        }
        for (; at.nLine < int(chunk.lst.size()) && nLine < nEnd; ++at.nLine, ++nLine)
            if (wanted.isWanted(chunk.lst[at.nLine]))
                return nLine;
    }
    return nEnd;
}

// Successive wanted lines of one chunk.
CLineStore::SBatch CLineStore::batchAt(int nLine, const SWanted &wanted, int nEnd) const
{
    SBatch batch;
    batch.nFirst = nLine;
    if (nLine > 0) {
        const SPosition before = locate(nLine - 1);
        batch.nStateBefore = m_lstChunks[before.nChunk].lst[before.nLine].nState;
    }
    const SPosition at = locate(nLine);
    const SChunk &chunk = m_lstChunks[at.nChunk];
    const int nLast =
        std::min({int(chunk.lst.size()), at.nLine + g_nLinesPerBatch, at.nLine + nEnd - nLine});
    int nOffset = chunk.offset(at.nLine);
    int nChars = 0;
    for (int n = at.nLine; n < nLast && nChars < g_nCharsPerBatch; ++n) {
        const SEntry &entry = chunk.lst[n];
        if (!wanted.isWanted(entry))
            break;
        batch.lst.push_back({chunk.text.mid(nOffset, int(entry.nLength)), entry.nState,
                             entry.bStale != 0, entry.bUnknown != 0, entry.bHeld != 0});
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

// A line after a changed state has to be done again.
void CLineStore::recordState(const SDone &done)
{
    const SPosition at = locate(done.nLine);
    SChunk &chunk = m_lstChunks[at.nChunk];
    const bool bChanged = chunk.lst[at.nLine].nState != done.nState;
    chunk.lst[at.nLine].nState = done.nState;
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
        m_arrUnderWay[order].push_back(done.nLine);
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
        m_nHintFirst -= int(m_lstChunks[m_nHintChunk].lst.size());
    }
    while (nLine - m_nHintFirst >= int(m_lstChunks[m_nHintChunk].lst.size())) {
        m_nHintFirst += int(m_lstChunks[m_nHintChunk].lst.size());
        ++m_nHintChunk;
    }
    return {m_nHintChunk, nLine - m_nHintFirst};
}

void CLineStore::voidResultsUnderWay()
{
    for (std::deque<int> &lst : m_arrUnderWay) {
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
        SChunk &chunk = m_lstChunks[nChunk];
        const int nHere = std::min(nLeft, int(chunk.lst.size()) - nLine);
        chunk.remove(nLine, nHere);
        nLeft -= nHere;
    }
    m_nCount -= nCount;
    const auto begin = m_lstChunks.begin() + at.nChunk;
    const auto end = m_lstChunks.begin() + nChunk;
    m_lstChunks.erase(
        std::remove_if(begin, end, [](const SChunk &chunk) { return chunk.lst.empty(); }), end);
    m_nHintChunk = m_nHintFirst = 0;
}

// Lines are put after an existing one, so nFirst is at least 1.
void CLineStore::insert(int nFirst, int nCount, const std::function<QString()> &nextLine)
{
    SPosition at = locate(nFirst - 1);
    ++at.nLine;
    m_nCount += nCount;
    if (int(m_lstChunks[at.nChunk].lst.size()) + nCount <= g_nMaxLinesPerChunk) {
        m_lstChunks[at.nChunk].insert(at.nLine, nCount, nextLine);
        return;
    }
    splitBehind(at);
    std::vector<SChunk> lstNew;
    for (int n = 0; n < nCount; n += g_nLinesPerChunk) {
        const int nHere = std::min(g_nLinesPerChunk, nCount - n);
        lstNew.emplace_back();
        lstNew.back().lst.reserve(nHere);
        lstNew.back().insert(0, nHere, nextLine);
        lstNew.back().text.squeeze();
    }
    m_lstChunks.insert(m_lstChunks.begin() + at.nChunk + 1, std::make_move_iterator(lstNew.begin()),
                       std::make_move_iterator(lstNew.end()));
}

// Moves the rest of the chunk after that place to a new chunk.
void CLineStore::splitBehind(const SPosition &at)
{
    SChunk &chunk = m_lstChunks[at.nChunk];
    if (at.nLine == int(chunk.lst.size()))
        return;
    SChunk tail = chunk.takeTail(at.nLine);
    m_lstChunks.insert(m_lstChunks.begin() + at.nChunk + 1, std::move(tail));
}
