// The walk over a line, and the search for patterns that machines cannot run.
#include "highlight/canchoredpattern.h"
#include "highlight/ccodematcher.h"
#include "highlight/ckeywordtable.h"
#include "highlight/fixedrules.h"
#include "highlight/highlightline.h"
#include "highlight/symbols.h"

#include <QtAlgorithms>
#include <algorithm>
#include <tuple>

void CCodeMatcher::walk(int nFrom, int nTo, quint64 nLive) const
{
    const uchar *const pSymbols = m_pLine->symbols();
    size_t nPlace = AtStart;
    if (nFrom > 0)
        nPlace = g_arrWordSymbols[pSymbols[nFrom - 1]];
    if (!(nLive & m_nBehindStart))
        nTo = nFrom == 0 ? std::min(nTo, 1) : nFrom;
    for (int n = nFrom; n < nTo; ++n) {
        const size_t nSymbol = pSymbols[n];
        if (quint64 nBits = m_arrStarts[nPlace][nSymbol] & nLive) {
            nBits &= m_arrSeconds[pSymbols[n + 1]] & ~m_nEnded;
            if (nBits)
                tryRules(nBits, n);
        }
        nPlace = g_arrWordSymbols[nSymbol]; // InWord is 1
    }
}

void CCodeMatcher::tryRules(quint64 nBits, int nAt) const
{
    for (; nBits != 0; nBits &= nBits - 1) {
        const auto nBit = int(qCountTrailingZeroBits(nBits));
        int &nNext = m_arrNext[size_t(nBit)];
        if (nAt < nNext)
            continue;
        if (nBit == WordBit) {
            if (m_table.mayStartAt(m_pLine->symbols() + nAt))
                m_table.findAt(*m_pLine, nAt, &m_lstHits);
        } else if (nBit == NumberBit || nBit == OperatorBit) {
            const bool bNumber = nBit == NumberBit;
            const QString &strText = m_pLine->text();
            const int nBehind =
                bNumber ? endOfNumber(strText, nAt, m_nTo) : endOfOperator(strText, nAt, m_nTo);
            if (nBehind > nAt) {
                (bNumber ? m_lstNumbers : m_lstOperators)
                    .push_back({nAt, nBehind - nAt,
                                bNumber ? HighlightRole::Number : HighlightRole::Operator});
                nNext = nBehind;
                m_nMoved |= bit(nBit);
            }
        } else {
            tryPattern(nBit, nAt);
        }
    }
}

void CCodeMatcher::tryPattern(int nBit, int nAt) const
{
    const SPattern &pattern = m_lstPatterns[size_t(nBit)];
    CAnchoredPattern *const pMachine = m_arrMachines[size_t(nBit)];
    const int nBehind = pMachine->endOfMatch(*m_pLine, nAt);
    if (!pMachine->isUsable()) {
        // The machine grew too large in this very search.
        m_bCompiled = false;
        m_nPossible &= ~bit(nBit);
        m_nEnded |= bit(nBit);
        m_lstSlow.push_back(size_t(nBit));
        m_lstNext.assign(m_lstPatterns.size(), SNext());
        return;
    }
    if (nBehind < 0)
        return;
    if (nBehind == nAt) {
        m_nEnded |= bit(nBit); // A match of no length ends the search.
        return;
    }
    take(pattern, nAt, nBehind - nAt);
    m_arrNext[size_t(nBit)] = nBehind;
    m_nMoved |= bit(nBit);
}

void CCodeMatcher::take(const SPattern &pattern, int nStart, int nLength) const
{
    if (pattern.role == HighlightRole::Keyword) {
        m_lstHits.push_back({pattern.nRule, nStart, nLength});
        return;
    }
    (pattern.role == HighlightRole::Number ? m_lstNumbers : m_lstOperators)
        .push_back({nStart, std::min(nLength, m_nTo - nStart), pattern.role});
}

// Drops what the machine found before it grew too large.
void CCodeMatcher::dropHits(const SPattern &pattern) const
{
    if (pattern.role != HighlightRole::Keyword) {
        (pattern.role == HighlightRole::Number ? m_lstNumbers : m_lstOperators).clear();
        return;
    }
    const auto isOfRule = [&pattern](const SKeywordHit &hit) { return hit.nRule == pattern.nRule; };
    m_lstHits.erase(std::remove_if(m_lstHits.begin(), m_lstHits.end(), isOfRule), m_lstHits.end());
}

bool CCodeMatcher::searchSlowly(HighlightRole role, int nFrom, int nTo,
                                const AbortCheck &isAborted) const
{
    for (const size_t n : m_lstSlow) {
        if (m_lstPatterns[n].role != role)
            continue;
        if (isAborted && isAborted())
            return false;
        dropHits(m_lstPatterns[n]);
        searchSlowly(n, nFrom, nTo);
    }
    return true;
}

void CCodeMatcher::searchSlowly(size_t nPattern, int nFrom, int nTo) const
{
    const SPattern &pattern = m_lstPatterns[nPattern];
    SNext &next = m_lstNext[nPattern];
    const auto search = [&](int nAt) {
        next.nFrom = nAt;
        next.nStart = pattern.pattern.indexIn(*m_pLine, nAt);
        next.nLength = pattern.pattern.matchedLength();
    };
    const bool bAhead = next.nStart < 0 || next.nStart >= nFrom;
    if (next.nFrom < 0 || next.nFrom > nFrom || !bAhead)
        search(nFrom);
    while (next.nStart >= 0 && next.nStart < nTo && next.nLength > 0) {
        take(pattern, next.nStart, next.nLength);
        const int nBehind = next.nStart + next.nLength;
        search(pattern.role == HighlightRole::Keyword ? nBehind : std::min(nBehind, nTo));
    }
}

// Sorts by rule and then by position.
void CCodeMatcher::addKeywords() const
{
    const auto isBefore = [](const SKeywordHit &a, const SKeywordHit &b) {
        return std::tie(a.nRule, a.nStart) < std::tie(b.nRule, b.nStart);
    };
    if (!std::is_sorted(m_lstHits.begin(), m_lstHits.end(), isBefore))
        std::sort(m_lstHits.begin(), m_lstHits.end(), isBefore);
    const SKeywordHit *pBefore = nullptr;
    for (const SKeywordHit &hit : m_lstHits) {
        // A rule is searched on from the end of its last match.
        if (pBefore && pBefore->nRule == hit.nRule
            && hit.nStart < pBefore->nStart + pBefore->nLength)
            continue;
        m_lstKeywords.push_back({hit.nStart, hit.nLength, HighlightRole::Keyword});
        pBefore = &hit;
    }
}
