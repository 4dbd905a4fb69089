#pragma once

#include "highlight/ccompacttext.h"
#include "highlight/highlightline.h"

#include <QString>
#include <functional>
#include <vector>

class CStoredText;

// A run of successive lines of a CLineStore, with what is known of their highlighting. The texts
// are stored end to end, and so are the packed ranges of lines whose blocks do not hold them.
//
// Lines count from 0 within the chunk. Not locked: the store's lock protects its chunks.
class CLineChunk
{
public:
    struct SEntry
    {
        uint nLength; // UTF-16 units, without a line end.
        int nState; // At the line's end, as last computed; -1 if it never was.
        uint nPacked : 28; // Bytes of the ranges that are kept.
        uint bStale : 1; // The result has to be computed again.
        uint bUnknown : 1; // The state has to be computed again, too.
        uint bHeld : 1; // The block holds its ranges.
        uint bKept : 1; // The ranges are kept here.
    };

    CLineChunk() = default;
    // Takes nCount lines from nextLine. Uses no more memory than they need.
    CLineChunk(int nCount, const std::function<QString()> &nextLine);

    int count() const { return int(m_lst.size()); }
    bool isEmpty() const { return m_lst.empty(); }
    const SEntry &entry(int nLine) const { return m_lst[nLine]; }
    bool hasStale() const { return m_nStale > 0; }
    bool hasUnknown() const { return m_nUnknown > 0; }
    bool hasHeld() const { return m_nHeld > 0; }

    QString text(int nLine) const { return text(nLine, offset(nLine)); }
    // The same if the line's offset is known, which costs a step for each line before it.
    QString text(int nLine, int nOffset) const
    {
        return m_text.mid(nOffset, int(m_lst[nLine].nLength));
    }
    // Where the line's text begins, in UTF-16 units.
    int offset(int nLine) const;
    void appendTo(CStoredText *pText) const;

    // New lines are stale, and their states are unknown.
    void insert(int nLine, int nCount, const std::function<QString()> &nextLine);
    void remove(int nLine, int nCount);
    // Removes the lines from nLine on and returns them.
    CLineChunk takeTail(int nLine);

    void setState(int nLine, int nState) { m_lst[nLine].nState = nState; }
    void setStale(int nLine, bool bStale);
    void setUnknown(int nLine, bool bUnknown);
    void setHeld(int nLine);
    // Makes every line stale, and its state unknown.
    void markAllStale();

    // Keeps a line's packed ranges in place of earlier ones; see packRanges().
    void keep(int nLine, const uchar *pBytes, int nBytes);
    std::vector<SHighlightRange> kept(int nLine) const;
    void drop(int nLine);
    void dropAll();

private:
    int packedOffset(int nLine) const;
    void count(const SEntry &entry, int nSign);

    CCompactText m_text;
    std::vector<SEntry> m_lst;
    std::vector<uchar> m_packed;
    int m_nStale = 0;
    int m_nUnknown = 0;
    int m_nHeld = 0;
};
