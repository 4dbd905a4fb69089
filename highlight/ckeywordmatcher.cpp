#include "highlight/ckeywordmatcher.h"

#include <algorithm>
#include <tuple>

CKeywordMatcher::CKeywordMatcher(Qt::CaseSensitivity sensitivity)
    : m_table(sensitivity), m_sensitivity(sensitivity)
{
}

void CKeywordMatcher::addWord(const QString &strItem)
{
    if (m_table.add(strItem, m_nRules)) {
        ++m_nRules;
        return;
    }
    const QString strEscaped = QString(strItem).replace(QLatin1Char('*'), QLatin1String("\\*"));
    addPattern(QLatin1String("\\b") + strEscaped + QLatin1String("\\b"));
}

void CKeywordMatcher::addPattern(const QString &strPattern)
{
    const CLinePattern pattern(strPattern, m_sensitivity);
    if (pattern.isValid()) {
        m_lstPatterns.push_back({m_nRules++, pattern});
    }
}

CKeywordMatcher::CSearch::CSearch(const CKeywordMatcher &matcher, const QString &strText)
    : m_matcher(matcher),
      m_strText(strText),
      m_symbols(matcher.m_lstPatterns.empty() ? SymbolSet() : symbolsIn(strText)),
      m_lstNext(matcher.m_lstPatterns.size())
{
}

bool CKeywordMatcher::CSearch::addMatches(int nStart, int nEnd,
                                          std::vector<HighlightRange> *pRanges,
                                          const AbortCheck &isAborted)
{
    m_lstHits.clear();
    if (!m_matcher.m_table.isEmpty()) {
        m_matcher.m_table.find(m_strText, nStart, nEnd, &m_lstHits);
    }
    for (size_t n = 0; n < m_matcher.m_lstPatterns.size(); ++n) {
        if (!m_matcher.m_lstPatterns[n].pattern.mayMatch(m_symbols)) {
            continue;
        }
        if (isAborted && isAborted()) {
            return false;
        }
        addPatternMatches(n, nStart, nEnd);
    }
    std::sort(m_lstHits.begin(), m_lstHits.end(), [](const KeywordHit &a, const KeywordHit &b) {
        return std::tie(a.nRule, a.nStart) < std::tie(b.nRule, b.nStart);
    });
    const KeywordHit *pBefore = nullptr;
    for (const KeywordHit &hit : m_lstHits) {
        // A rule is searched on from the end of its last match.
        if (pBefore && pBefore->nRule == hit.nRule
            && hit.nStart < pBefore->nStart + pBefore->nLength) {
            continue;
        }
        pRanges->push_back({hit.nStart, hit.nLength, HighlightRole::Keyword});
        pBefore = &hit;
    }
    return true;
}

// A match found for one region that lies behind it serves the next ones, so that a long line with
// many regions is not searched to its end for each of them.
void CKeywordMatcher::CSearch::addPatternMatches(size_t nPattern, int nStart, int nEnd)
{
    const auto &[nRule, pattern] = m_matcher.m_lstPatterns[nPattern];
    Next &next = m_lstNext[nPattern];
    const auto search = [&next, nEnd, &pattern = pattern, this](int nFrom) {
        next.nFrom = nFrom;
        next.nStart = pattern.indexIn(m_strText, nFrom, nEnd);
        next.nTo = pattern.searchedAll() ? -1 : nEnd;
        next.nLength = pattern.matchedLength();
    };
    const bool bNoneAhead = next.nStart < 0 && (next.nTo < 0 || (nEnd >= 0 && nEnd <= next.nTo));
    const bool bKnown =
        next.nFrom >= 0 && next.nFrom <= nStart && (bNoneAhead || next.nStart >= nStart);
    if (!bKnown) {
        search(nStart);
    }
    while (next.nStart >= 0 && next.nLength > 0 && (nEnd < 0 || next.nStart <= nEnd)) {
        m_lstHits.push_back({nRule, next.nStart, next.nLength});
        search(next.nStart + next.nLength);
    }
}
