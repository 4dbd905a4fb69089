#include "highlight/clinechunk.h"

#include "highlight/cstoredtext.h"
#include "highlight/packedranges.h"

#include <utility>

CLineChunk::CLineChunk(int nCount, const std::function<QString()> &nextLine)
{
    m_lst.reserve(nCount);
    insert(0, nCount, nextLine);
    m_text.squeeze();
}

int CLineChunk::offset(int nLine) const
{
    int nOffset = 0;
    for (int n = 0; n < nLine; ++n)
        nOffset += int(m_lst[n].nLength);
    return nOffset;
}

void CLineChunk::appendTo(CStoredText *pText) const
{
    std::vector<int> lstLengths;
    lstLengths.reserve(m_lst.size());
    for (const SEntry &entry : m_lst)
        lstLengths.push_back(int(entry.nLength));
    pText->append(m_text, std::move(lstLengths));
}

void CLineChunk::insert(int nLine, int nCount, const std::function<QString()> &nextLine)
{
    QString strNew;
    m_lst.insert(m_lst.begin() + nLine, nCount, SEntry {0, -1, 0, 1, 1, 0, 0});
    for (int n = nLine; n < nLine + nCount; ++n) {
        const QString strLine = nextLine();
        strNew += strLine;
        m_lst[n].nLength = uint(strLine.size());
    }
    m_text.insert(offset(nLine), strNew);
    m_nStale += nCount;
    m_nUnknown += nCount;
}

// Adds a line to the numbers of lines (1), or takes it from them (-1).
void CLineChunk::count(const SEntry &entry, int nSign)
{
    m_nStale += nSign * int(entry.bStale);
    m_nUnknown += nSign * int(entry.bUnknown);
    m_nHeld += nSign * int(entry.bHeld);
}

void CLineChunk::remove(int nLine, int nCount)
{
    const auto begin = m_lst.begin() + nLine;
    int nChars = 0;
    int nPacked = 0;
    for (auto it = begin; it != begin + nCount; ++it) {
        nChars += int(it->nLength);
        nPacked += int(it->nPacked);
        count(*it, -1);
    }
    m_text.remove(offset(nLine), nChars);
    const auto bytes = m_packed.begin() + packedOffset(nLine);
    m_packed.erase(bytes, bytes + nPacked);
    m_lst.erase(begin, begin + nCount);
}

CLineChunk CLineChunk::takeTail(int nLine)
{
    CLineChunk tail;
    tail.m_text = m_text.part(offset(nLine));
    tail.m_lst.assign(m_lst.begin() + nLine, m_lst.end());
    tail.m_packed.assign(m_packed.begin() + packedOffset(nLine), m_packed.end());
    for (const SEntry &entry : tail.m_lst)
        tail.count(entry, 1);
    remove(nLine, tail.count());
    return tail;
}

void CLineChunk::setStale(int nLine, bool bStale)
{
    m_nStale += int(bStale) - int(m_lst[nLine].bStale);
    m_lst[nLine].bStale = bStale;
}

void CLineChunk::setUnknown(int nLine, bool bUnknown)
{
    m_nUnknown += int(bUnknown) - int(m_lst[nLine].bUnknown);
    m_lst[nLine].bUnknown = bUnknown;
}

void CLineChunk::setHeld(int nLine)
{
    m_nHeld += int(!m_lst[nLine].bHeld);
    m_lst[nLine].bHeld = true;
}

void CLineChunk::markAllStale()
{
    for (SEntry &entry : m_lst) {
        entry.bStale = true;
        entry.bUnknown = true;
    }
    m_nStale = m_nUnknown = count();
}

int CLineChunk::packedOffset(int nLine) const
{
    if (m_packed.empty())
        return 0;
    int nOffset = 0;
    for (int n = 0; n < nLine; ++n)
        nOffset += int(m_lst[n].nPacked);
    return nOffset;
}

void CLineChunk::keep(int nLine, const uchar *pBytes, int nBytes)
{
    drop(nLine);
    m_packed.insert(m_packed.begin() + packedOffset(nLine), pBytes, pBytes + nBytes);
    m_lst[nLine].nPacked = uint(nBytes);
    m_lst[nLine].bKept = true;
    // A pass over a new text reaches the last line last.
    if (nLine + 1 == count())
        m_packed.shrink_to_fit();
}

std::vector<SHighlightRange> CLineChunk::kept(int nLine) const
{
    return unpackRanges(m_packed.data() + packedOffset(nLine), m_lst[nLine].nPacked);
}

void CLineChunk::drop(int nLine)
{
    SEntry &entry = m_lst[nLine];
    if (entry.nPacked > 0) {
        const auto begin = m_packed.begin() + packedOffset(nLine);
        m_packed.erase(begin, begin + int(entry.nPacked));
    }
    entry.nPacked = 0;
    entry.bKept = false;
}

void CLineChunk::dropAll()
{
    std::vector<uchar>().swap(m_packed);
    for (SEntry &entry : m_lst) {
        entry.nPacked = 0;
        entry.bKept = false;
    }
}
