// The ranges of lines that no block holds.
#include "highlight/clinestore.h"
#include "highlight/packedranges.h"

int CLineStore::SChunk::packedOffset(int nLine) const
{
    if (packed.empty())
        return 0;
    int nOffset = 0;
    for (int n = 0; n < nLine; ++n)
        nOffset += int(lst[n].nPacked);
    return nOffset;
}

void CLineStore::SChunk::keep(int nLine, const uchar *pBytes, int nBytes)
{
    drop(nLine);
    packed.insert(packed.begin() + packedOffset(nLine), pBytes, pBytes + nBytes);
    lst[nLine].nPacked = uint(nBytes);
    lst[nLine].bKept = true;
    // A pass over a new text reaches the last line last.
    if (nLine + 1 == int(lst.size()))
        packed.shrink_to_fit();
}

std::vector<SHighlightRange> CLineStore::SChunk::kept(int nLine) const
{
    return unpackRanges(packed.data() + packedOffset(nLine), lst[nLine].nPacked);
}

void CLineStore::SChunk::drop(int nLine)
{
    SEntry &entry = lst[nLine];
    if (entry.nPacked > 0) {
        const auto begin = packed.begin() + packedOffset(nLine);
        packed.erase(begin, begin + int(entry.nPacked));
    }
    entry.nPacked = 0;
    entry.bKept = false;
}

void CLineStore::SChunk::setHeld(int nLine)
{
    nHeld += int(!lst[nLine].bHeld);
    lst[nLine].bHeld = true;
}

void CLineStore::setSparse(bool bSparse)
{
    if (bSparse == isSparse())
        return;
    const std::lock_guard<std::mutex> locker(m_mutex);
    m_bSparse.store(bSparse, std::memory_order_release);
    if (!bSparse || m_bMayKeep)
        return;
    holdLines(0, m_nCount);
    m_bMayKeep.store(true, std::memory_order_release);
}

CLineStore::Ranges CLineStore::hold(int nLine, std::vector<SHighlightRange> *pRanges)
{
    const std::lock_guard<std::mutex> locker(m_mutex);
    const SPosition at = locate(nLine);
    SChunk &chunk = m_lstChunks[at.nChunk];
    const SEntry &entry = chunk.lst[at.nLine];
    if (entry.bHeld)
        return Ranges::Held;
    const Ranges found = entry.bKept ? Ranges::Kept : Ranges::None;
    *pRanges = chunk.kept(at.nLine);
    chunk.drop(at.nLine);
    chunk.setHeld(at.nLine);
    return found;
}

std::optional<std::vector<SHighlightRange>> CLineStore::keptRanges(int nLine) const
{
    const std::lock_guard<std::mutex> locker(m_mutex);
    const SPosition at = locate(nLine);
    const SChunk &chunk = m_lstChunks[at.nChunk];
    if (!chunk.lst[at.nLine].bKept)
        return std::nullopt;
    return chunk.kept(at.nLine);
}

std::vector<int> CLineStore::forgetRanges()
{
    const std::lock_guard<std::mutex> locker(m_mutex);
    std::vector<int> lstHeld;
    int nFirst = 0;
    for (SChunk &chunk : m_lstChunks) {
        std::vector<uchar>().swap(chunk.packed);
        for (int n = 0; n < int(chunk.lst.size()); ++n) {
            chunk.lst[n].nPacked = 0;
            chunk.lst[n].bKept = false;
            if (chunk.lst[n].bHeld)
                lstHeld.push_back(nFirst + n);
        }
        nFirst += int(chunk.lst.size());
    }
    return lstHeld;
}

// True when the ranges have to be sent.
bool CLineStore::recordRanges(const SDone &done, const uchar *pPacked, bool bSendAll)
{
    if (!m_bMayKeep)
        return true;
    const SPosition at = locate(done.nLine);
    SChunk &chunk = m_lstChunks[at.nChunk];
    if (bSendAll || !m_bSparse) {
        chunk.drop(at.nLine);
        chunk.setHeld(at.nLine);
    }
    if (chunk.lst[at.nLine].bHeld)
        return true;
    chunk.keep(at.nLine, pPacked, done.nPacked);
    return false;
}

bool CLineStore::isAnyHeld(int nFirst, int nCount) const
{
    SPosition at = locate(nFirst);
    for (int n = 0; n < nCount; ++n, ++at.nLine) {
        if (at.nLine == int(m_lstChunks[at.nChunk].lst.size()))
            at = {at.nChunk + 1, 0};
        if (m_lstChunks[at.nChunk].lst[at.nLine].bHeld)
            return true;
    }
    return false;
}

void CLineStore::holdLines(int nFirst, int nCount)
{
    for (int n = nFirst; n < nFirst + nCount; ++n) {
        const SPosition at = locate(n);
        m_lstChunks[at.nChunk].setHeld(at.nLine);
    }
}
