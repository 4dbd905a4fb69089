#include "highlight/ccodematcher.h"

#include <QtAlgorithms>
#include <algorithm>

namespace {

constexpr int g_nStride = 16384; // Characters between two calls of isAborted.

} // namespace

CCodeMatcher::CCodeMatcher(Qt::CaseSensitivity sensitivity)
    : m_sensitivity(sensitivity), m_table(sensitivity)
{
}

void CCodeMatcher::addWord(const QString &strItem)
{
    if (m_table.add(strItem, m_nRules)) {
        ++m_nRules;
        return;
    }
    const QString strEscaped = QString(strItem).replace(QLatin1Char('*'), QLatin1String("\\*"));
    addPattern(QLatin1String("\\b") + strEscaped + QLatin1String("\\b"));
}

void CCodeMatcher::addPattern(const QString &strPattern)
{
    if (CLinePattern(strPattern, m_sensitivity).isValid())
        addPatternOf(HighlightRole::Keyword, m_nRules++, strPattern);
}

void CCodeMatcher::setNumbers(const QString &strPattern)
{
    m_bOwnNumbers = true;
    addPatternOf(HighlightRole::Number, -1, strPattern);
}

void CCodeMatcher::setOperators(const QString &strPattern)
{
    m_bOwnOperators = true;
    addPatternOf(HighlightRole::Operator, -1, strPattern);
}

void CCodeMatcher::addPatternOf(HighlightRole role, int nRule, const QString &strPattern)
{
    const CLinePattern pattern(strPattern, m_sensitivity);
    if (!pattern.isEmpty()) {
        m_lstPatterns.push_back({nRule, role, pattern});
        m_bCompiled = false;
    }
}

void CCodeMatcher::begin(int nFrom, int nTo) const
{
    m_nFrom = nFrom;
    m_nTo = nTo;
    m_lstNumbers.clear();
    m_lstOperators.clear();
    m_lstKeywords.clear();
    forget(~quint64(0));
}

// The rules are searched again from the place where the walk continues.
void CCodeMatcher::forget(quint64 nRules) const
{
    if (!(m_nMoved | m_nEnded))
        return;
    for (quint64 nBits = m_nMoved & nRules; nBits != 0; nBits &= nBits - 1)
        m_arrNext[qCountTrailingZeroBits(nBits)] = 0;
    m_nMoved &= ~nRules;
    m_nEnded &= ~nRules;
}

bool CCodeMatcher::lookThrough(int nFrom, int nTo, bool bKeywords,
                               const AbortCheck &isAborted) const
{
    m_lstHits.clear();
    for (int n = nFrom; n < nTo; n += g_nStride) {
        if (isAborted && isAborted())
            return false;
        walk(n, std::min(nTo, n + g_nStride),
             m_nPossible & (bKeywords ? ~quint64(0) : ~m_nKeywordBits));
    }
    if (!bKeywords)
        return true;
    if (!m_lstSlow.empty() && !searchSlowly(HighlightRole::Keyword, nFrom, nTo, isAborted))
        return false;
    if (!m_lstHits.empty())
        addKeywords();
    forget(m_nKeywordBits);
    return true;
}

bool CCodeMatcher::finish(std::vector<SHighlightRange> *pRanges, const AbortCheck &isAborted) const
{
    if (!m_lstSlow.empty()
        && (!searchSlowly(HighlightRole::Number, m_nFrom, m_nTo, isAborted)
            || !searchSlowly(HighlightRole::Operator, m_nFrom, m_nTo, isAborted)))
        return false;
    for (const std::vector<SHighlightRange> *pList :
         {&m_lstNumbers, &m_lstOperators, &m_lstKeywords})
        if (!pList->empty())
            pRanges->insert(pRanges->end(), pList->begin(), pList->end());
    return true;
}
