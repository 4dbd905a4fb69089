#pragma once

#include "web/pagehabits.h"
#include "web/pagetokens.h"

// What was [nOld, nOldEnd) in a page's serialisation is [nNow, nNowEnd) now. Counts pieces.
struct SPageChange
{
    int nOld = 0;
    int nOldEnd = 0;
    int nNow = 0;
    int nNowEnd = 0;
};

// Brings changes of a page, in order, into its source. See CPageMerge; keeps references to all that
// it is given.
class CPageMergeWriter
{
public:
    struct SBefore
    {
        const QString &strSource;
        const PageTokens &lstSource;
        const QString &strSerialised;
        const PageTokens &lstSerialised;
        const QVector<int> &lstSourceOf;
        const QVector<int> &lstNextSource;
        const SPageHabits &habits;
    };
    struct SAfter
    {
        const QString &strHtml;
        const PageTokens &lstTokens;
        const QVector<int> &lstOldOf;
    };

    CPageMergeWriter(const SBefore &before, const SAfter &now) : m_before(before), m_now(now) { }

    // Writes piece by piece. With bSpellOut, tags that the source leaves out before something new
    // are written, too.
    void writeChange(const SPageChange &change, bool bSpellOut);
    // Writes the whole range with all tags spelled out.
    void writeAnew(const SPageChange &change);
    // The source with all changes. Call it once, at the end.
    QString result();

private:
    void remove(int nOld);
    void replace(int nOld, int nNow);
    void insert(int nOld, int nNow);
    void spellOut(int nOld);
    void put(int nStart, int nEnd, const QString &strText);
    QString changedWord(const SPageToken &source, int nOld, int nNow) const;
    int sourcePosition(int nOld) const;

    const SBefore m_before;
    const SAfter m_now;
    QString m_strResult;
    int m_nCopied = 0; // Characters of the source that are written.
    int m_nSpelledOut = 0; // Pieces before this need not be spelled out any more.
    bool m_bRemoved = false; // The last thing that was done.
    bool m_bSpellOutAll = false;
};
