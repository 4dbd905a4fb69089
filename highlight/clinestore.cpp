#include "highlight/clinestore.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr int nLinesPerChunk = 256;
constexpr int nMaxLinesPerChunk = 2 * nLinesPerChunk;
// What the worker takes at a time: few enough for an edit to wait for copying them.
constexpr int nLinesPerBatch = 32;
constexpr int nCharsPerBatch = 16 * 1024;

} // namespace

int CLineStore::Chunk::offset(int nLine) const
{
    int nOffset = 0;
    for (int n = 0; n < nLine; ++n) {
        nOffset += int(lst[n].nLength);
    }
    return nOffset;
}

void CLineStore::Chunk::insert(int nLine, int nCount, const std::function<QString()> &nextLine)
{
    QString strNew;
    lst.insert(lst.begin() + nLine, nCount, Entry {0, 1, -1});
    for (int n = nLine; n < nLine + nCount; ++n) {
        const QString strLine = nextLine();
        strNew += strLine;
        lst[n].nLength = uint(strLine.size());
    }
    strText.insert(offset(nLine), strNew);
    nStale += nCount;
}

void CLineStore::Chunk::remove(int nLine, int nCount)
{
    const auto begin = lst.begin() + nLine;
    int nChars = 0;
    for (auto it = begin; it != begin + nCount; ++it) {
        nChars += it->nLength;
        nStale -= int(it->bStale);
    }
    strText.remove(offset(nLine), nChars);
    lst.erase(begin, begin + nCount);
}

void CLineStore::Chunk::setStale(int nLine, bool bStale)
{
    nStale += int(bStale) - int(lst[nLine].bStale);
    lst[nLine].bStale = bStale;
}

// A document without text has one empty line.
CLineStore::CLineStore() : m_lstChunks(1), m_nCount(1)
{
    m_lstChunks.front().insert(0, 1, [] { return QString(); });
}

int CLineStore::count() const
{
    const std::lock_guard<std::mutex> locker(m_mutex);
    return m_nCount;
}

QString CLineStore::text(int nLine) const
{
    const std::lock_guard<std::mutex> locker(m_mutex);
    const Position at = locate(nLine);
    const Chunk &chunk = m_lstChunks[at.nChunk];
    return chunk.strText.mid(chunk.offset(at.nLine), chunk.lst[at.nLine].nLength);
}

void CLineStore::replace(int nFirst, int nOld, int nNew, const std::function<QString()> &nextLine)
{
    const std::lock_guard<std::mutex> locker(m_mutex);
    voidResultsUnderWay();
    // The line behind the edit was computed with this state; it stays valid if the state comes
    // again.
    const Position last = locate(nFirst + nOld - 1);
    const int nStateAtEnd = m_lstChunks[last.nChunk].lst[last.nLine].nState;
    insert(nFirst + nOld, nNew, nextLine);
    remove(nFirst, nOld);
    const Position end = locate(nFirst + nNew - 1);
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
    for (Chunk &chunk : m_lstChunks) {
        for (Entry &entry : chunk.lst) {
            entry.bStale = true;
        }
        chunk.nStale = int(chunk.lst.size());
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
    return m_lstUnderWay.empty()
        && std::all_of(m_lstChunks.begin(), m_lstChunks.end(),
                       [](const Chunk &chunk) { return chunk.nStale == 0; });
}

void CLineStore::confirm(uint nVersion, int nCount)
{
    const std::lock_guard<std::mutex> locker(m_mutex);
    if (nVersion == version()) {
        m_lstUnderWay.erase(m_lstUnderWay.begin(), m_lstUnderWay.begin() + nCount);
    }
}

CLineStore::Batch CLineStore::fetch(uint nVersion, int nFrom, bool bOnlyStale) const
{
    const std::lock_guard<std::mutex> locker(m_mutex);
    Batch batch;
    if (nVersion != version() || nFrom >= m_nCount) {
        return batch;
    }
    Position at = locate(nFrom);
    int nLine = nFrom;
    const auto chunk = [&]() -> const Chunk & { return m_lstChunks[at.nChunk]; };
    const auto skipChunk = [&] {
        nLine += int(chunk().lst.size()) - at.nLine;
        at = {at.nChunk + 1, 0};
    };
    while (bOnlyStale && nLine < m_nCount
           && (at.nLine == int(chunk().lst.size()) || !chunk().lst[at.nLine].bStale)) {
        if (chunk().nStale == 0 || at.nLine == int(chunk().lst.size())) {
            skipChunk();
        } else {
            ++at.nLine;
            ++nLine;
        }
    }
    if (nLine >= m_nCount) {
        return batch;
    }
    batch.nFirst = nLine;
    if (nLine > 0) {
        const Position before = locate(nLine - 1);
        batch.nStateBefore = m_lstChunks[before.nChunk].lst[before.nLine].nState;
    }
    int nOffset = chunk().offset(at.nLine);
    for (int nChars = 0; at.nLine < int(chunk().lst.size())
         && int(batch.lst.size()) < nLinesPerBatch && nChars < nCharsPerBatch;
         ++at.nLine) {
        const Entry &entry = chunk().lst[at.nLine];
        if (bOnlyStale && !entry.bStale) {
            break;
        }
        batch.lst.push_back(
            {chunk().strText.mid(nOffset, int(entry.nLength)), entry.nState, entry.bStale != 0});
        nOffset += int(entry.nLength);
        nChars += int(entry.nLength);
    }
    return batch;
}

bool CLineStore::commit(uint nVersion, uint nGeneration, const std::vector<Done> &lstDone)
{
    const std::lock_guard<std::mutex> locker(m_mutex);
    if (nVersion != version() || nGeneration != generation()) {
        return false;
    }
    for (const Done &done : lstDone) {
        const Position at = locate(done.nLine);
        Chunk &chunk = m_lstChunks[at.nChunk];
        const bool bChanged = chunk.lst[at.nLine].nState != done.nState;
        chunk.lst[at.nLine].nState = done.nState;
        chunk.setStale(at.nLine, false);
        m_lstUnderWay.push_back(done.nLine);
        if (bChanged && done.nLine + 1 < m_nCount) {
            const Position next = locate(done.nLine + 1);
            m_lstChunks[next.nChunk].setStale(next.nLine, true);
        }
    }
    return true;
}

void CLineStore::finishPass(uint nVersion)
{
    const std::lock_guard<std::mutex> locker(m_mutex);
    if (nVersion == version()) {
        m_bEdited = false;
    }
}

CLineStore::Position CLineStore::locate(int nLine) const
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
    for (const int nLine : m_lstUnderWay) {
        const Position at = locate(nLine);
        m_lstChunks[at.nChunk].setStale(at.nLine, true);
    }
    m_lstUnderWay.clear();
}

void CLineStore::remove(int nFirst, int nCount)
{
    const Position at = locate(nFirst);
    int nChunk = at.nChunk;
    int nLine = at.nLine;
    for (int nLeft = nCount; nLeft > 0; ++nChunk, nLine = 0) {
        Chunk &chunk = m_lstChunks[nChunk];
        const int nHere = std::min(nLeft, int(chunk.lst.size()) - nLine);
        chunk.remove(nLine, nHere);
        nLeft -= nHere;
    }
    m_nCount -= nCount;
    const auto begin = m_lstChunks.begin() + at.nChunk;
    const auto end = m_lstChunks.begin() + nChunk;
    m_lstChunks.erase(
        std::remove_if(begin, end, [](const Chunk &chunk) { return chunk.lst.empty(); }), end);
    m_nHintChunk = m_nHintFirst = 0;
}

// Lines go behind an existing one, so that nFirst is at least 1.
void CLineStore::insert(int nFirst, int nCount, const std::function<QString()> &nextLine)
{
    Position at = locate(nFirst - 1);
    ++at.nLine;
    m_nCount += nCount;
    if (int(m_lstChunks[at.nChunk].lst.size()) + nCount <= nMaxLinesPerChunk) {
        m_lstChunks[at.nChunk].insert(at.nLine, nCount, nextLine);
        return;
    }
    splitBehind(at);
    std::vector<Chunk> lstNew;
    for (int n = 0; n < nCount; n += nLinesPerChunk) {
        const int nHere = std::min(nLinesPerChunk, nCount - n);
        lstNew.emplace_back();
        lstNew.back().lst.reserve(nHere);
        lstNew.back().insert(0, nHere, nextLine);
        lstNew.back().strText.squeeze();
    }
    m_lstChunks.insert(m_lstChunks.begin() + at.nChunk + 1, std::make_move_iterator(lstNew.begin()),
                       std::make_move_iterator(lstNew.end()));
}

// Moves what is behind that place in its chunk to a chunk of its own.
void CLineStore::splitBehind(const Position &at)
{
    Chunk &chunk = m_lstChunks[at.nChunk];
    const int nSize = int(chunk.lst.size());
    if (at.nLine == nSize) {
        return;
    }
    Chunk tail;
    tail.strText = chunk.strText.mid(chunk.offset(at.nLine));
    tail.lst.assign(chunk.lst.begin() + at.nLine, chunk.lst.end());
    tail.nStale = int(std::count_if(tail.lst.begin(), tail.lst.end(),
                                    [](const Entry &entry) { return entry.bStale; }));
    chunk.remove(at.nLine, nSize - at.nLine);
    m_lstChunks.insert(m_lstChunks.begin() + at.nChunk + 1, std::move(tail));
}
