// The ranges of lines that no block holds.
#include "highlight/clinestore.h"

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
    CLineChunk &chunk = m_lstChunks[at.nChunk];
    const CLineChunk::SEntry &entry = chunk.entry(at.nLine);
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
    const CLineChunk &chunk = m_lstChunks[at.nChunk];
    if (!chunk.entry(at.nLine).bKept)
        return std::nullopt;
    return chunk.kept(at.nLine);
}

std::vector<int> CLineStore::forgetRanges()
{
    const std::lock_guard<std::mutex> locker(m_mutex);
    std::vector<int> lstHeld;
    int nFirst = 0;
    for (CLineChunk &chunk : m_lstChunks) {
        chunk.dropAll();
        for (int n = 0; n < chunk.count(); ++n)
            if (chunk.entry(n).bHeld)
                lstHeld.push_back(nFirst + n);
        nFirst += chunk.count();
    }
    return lstHeld;
}

// True when the ranges have to be sent.
bool CLineStore::recordRanges(const SDone &done, const uchar *pPacked, bool bSendAll)
{
    if (!m_bMayKeep)
        return true;
    const SPosition at = locate(done.nLine);
    CLineChunk &chunk = m_lstChunks[at.nChunk];
    if (bSendAll || !m_bSparse) {
        chunk.drop(at.nLine);
        chunk.setHeld(at.nLine);
    }
    if (chunk.entry(at.nLine).bHeld)
        return true;
    chunk.keep(at.nLine, pPacked, done.nPacked);
    return false;
}

bool CLineStore::isAnyHeld(int nFirst, int nCount) const
{
    SPosition at = locate(nFirst);
    for (int n = 0; n < nCount; ++n, ++at.nLine) {
        if (at.nLine == m_lstChunks[at.nChunk].count())
            at = {at.nChunk + 1, 0};
        if (m_lstChunks[at.nChunk].entry(at.nLine).bHeld)
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
