#include "highlight/ccodematcher.h"

#include "highlight/fixedrules.h"

#include <QtAlgorithms>
#include <algorithm>
#include <tuple>

namespace {

constexpr int nStride = 16384; // characters between two questions whether to go on

constexpr quint64 bit(int n)
{
    return quint64(1) << n;
}

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
    if (CLinePattern(strPattern, m_sensitivity).isValid()) {
        addPatternOf(HighlightRole::Keyword, m_nRules++, strPattern);
    }
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
    if (pattern.isEmpty()) {
        return;
    }
    quint64 nRequired = 0;
    for (const SymbolSet &set : pattern.required().sets()) {
        nRequired |= numberOf(set);
    }
    m_lstPatterns.push_back({nRule, role, pattern, nRequired});
}

// The bit of the set; none when there are too many, which only makes the answer less sharp.
quint64 CCodeMatcher::numberOf(const SymbolSet &set)
{
    const auto it = std::find(m_lstSets.begin(), m_lstSets.end(), set);
    const auto n = int(it - m_lstSets.begin());
    if (it == m_lstSets.end()) {
        if (n == 64) {
            return 0;
        }
        m_lstSets.push_back(set);
        for (size_t nSymbol = 0; nSymbol < SymbolCount; ++nSymbol) {
            m_arrSets[nSymbol] |= set[nSymbol] ? bit(n) : 0;
        }
    }
    return bit(n);
}

void CCodeMatcher::enter(int nBit,
                         const std::array<SymbolSet, CPatternAutomaton::ContextCount> &first) const
{
    for (size_t nSymbol = 0; nSymbol < SymbolCount; ++nSymbol) {
        m_arrStarts[Elsewhere][nSymbol] |= first[0][nSymbol] ? bit(nBit) : 0;
        m_arrStarts[InWord][nSymbol] |=
            first[CPatternAutomaton::BehindWord][nSymbol] ? bit(nBit) : 0;
        m_arrStarts[AtStart][nSymbol] |=
            first[CPatternAutomaton::AtLineStart][nSymbol] ? bit(nBit) : 0;
    }
}

void CCodeMatcher::compile() const
{
    m_bCompiled = true;
    m_arrStarts = {};
    m_nKeywordBits = bit(WordBit);
    m_nRun = 0;
    const CSymbolLine none;
    const int nPatterns = std::min(int(m_lstPatterns.size()), int(nMaxPatterns));
    for (int n = 0; n < nPatterns; ++n) {
        CAnchoredPattern *const pMachine = m_lstPatterns[size_t(n)].pattern.machineFor(none);
        m_arrMachines[size_t(n)] = pMachine;
        if (pMachine) {
            m_nRun |= bit(n);
            enter(n, pMachine->firstByContext());
        }
        m_nKeywordBits |= m_lstPatterns[size_t(n)].role == HighlightRole::Keyword ? bit(n) : 0;
    }
    for (int nSymbol = 0; nSymbol < SymbolCount; ++nSymbol) {
        const bool bNumber = !m_bOwnNumbers && mayStartNumber(nSymbol);
        const bool bOperator = !m_bOwnOperators && mayStartOperator(nSymbol);
        const quint64 nFixed = (bNumber ? bit(NumberBit) : 0) | (bOperator ? bit(OperatorBit) : 0);
        for (auto &arrStarts : m_arrStarts) {
            arrStarts[size_t(nSymbol)] |= nFixed;
        }
        const quint64 nWord = m_table.mayStartWith(nSymbol) ? bit(WordBit) : 0;
        m_arrStarts[Elsewhere][size_t(nSymbol)] |= nWord;
        m_arrStarts[AtStart][size_t(nSymbol)] |= nWord;
    }
    m_nBehindStart = 0;
    for (size_t nSymbol = 0; nSymbol < SymbolCount; ++nSymbol) {
        m_nBehindStart |= m_arrStarts[Elsewhere][nSymbol] | m_arrStarts[InWord][nSymbol];
    }
}

quint64 CCodeMatcher::requirementsIn(const CSymbolLine &line) const
{
    quint64 nSets = 0;
    if (!m_lstSets.empty()) {
        const uchar *const pSymbols = line.symbols();
        for (int n = 0; n < line.size(); ++n) {
            nSets |= m_arrSets[pSymbols[n]];
        }
    }
    return nSets;
}

void CCodeMatcher::setLine(const CSymbolLine *pLine) const
{
    if (!m_bCompiled) {
        compile();
    }
    m_pLine = pLine;
    m_nPossible = bit(NumberBit) | bit(OperatorBit) | bit(WordBit);
    m_lstSlow.clear();
    const bool bFolds = m_sensitivity == Qt::CaseInsensitive && pLine->hasFolding();
    const quint64 nRun = bFolds ? 0 : m_nRun;
    const quint64 nLacking = ~requirementsIn(*pLine);
    for (size_t n = 0; n < m_lstPatterns.size(); ++n) {
        if (m_lstPatterns[n].nRequired & nLacking) {
            continue;
        }
        if (int(n) < nMaxPatterns && (nRun & bit(int(n)))) {
            m_nPossible |= bit(int(n));
        } else {
            m_lstSlow.push_back(n);
        }
    }
    if (!m_lstSlow.empty()) {
        m_lstNext.assign(m_lstPatterns.size(), Next());
    }
}

void CCodeMatcher::begin(int nFrom, int nTo) const
{
    m_nFrom = nFrom;
    m_nTo = nTo;
    m_nEnded = 0;
    m_lstNumbers.clear();
    m_lstOperators.clear();
    m_lstKeywords.clear();
    std::fill_n(m_arrNext.begin(), std::min(m_lstPatterns.size(), size_t(nMaxPatterns)), 0);
    m_arrNext[NumberBit] = m_arrNext[OperatorBit] = 0;
}

bool CCodeMatcher::lookThrough(int nFrom, int nTo, bool bKeywords,
                               const AbortCheck &isAborted) const
{
    m_lstHits.clear();
    for (int n = nFrom; n < nTo; n += nStride) {
        if (isAborted && isAborted()) {
            return false;
        }
        walk(n, std::min(nTo, n + nStride),
             m_nPossible & (bKeywords ? ~quint64(0) : ~m_nKeywordBits));
    }
    if (!bKeywords) {
        return true;
    }
    if (!m_lstSlow.empty() && !searchSlowly(HighlightRole::Keyword, nFrom, nTo, isAborted)) {
        return false;
    }
    if (!m_lstHits.empty()) {
        addKeywords();
    }
    // The next piece is searched anew.
    m_nEnded &= ~m_nKeywordBits;
    for (quint64 nBits = m_nPossible & m_nKeywordBits; nBits != 0; nBits &= nBits - 1) {
        m_arrNext[qCountTrailingZeroBits(nBits)] = 0;
    }
    return true;
}

bool CCodeMatcher::finish(std::vector<HighlightRange> *pRanges, const AbortCheck &isAborted) const
{
    if (!m_lstSlow.empty()
        && (!searchSlowly(HighlightRole::Number, m_nFrom, m_nTo, isAborted)
            || !searchSlowly(HighlightRole::Operator, m_nFrom, m_nTo, isAborted))) {
        return false;
    }
    for (const std::vector<HighlightRange> *pList :
         {&m_lstNumbers, &m_lstOperators, &m_lstKeywords}) {
        for (const HighlightRange &range : *pList) {
            pRanges->push_back(range);
        }
    }
    return true;
}

void CCodeMatcher::walk(int nFrom, int nTo, quint64 nLive) const
{
    const uchar *const pSymbols = m_pLine->symbols();
    size_t nPlace = AtStart;
    if (nFrom > 0) {
        nPlace = arrWordSymbols[pSymbols[nFrom - 1]];
    }
    if (!(nLive & m_nBehindStart)) {
        nTo = nFrom == 0 ? std::min(nTo, 1) : nFrom;
    }
    for (int n = nFrom; n < nTo; ++n) {
        const size_t nSymbol = pSymbols[n];
        if (const quint64 nBits = m_arrStarts[nPlace][nSymbol] & nLive) {
            tryRules(nBits & ~m_nEnded, n);
        }
        nPlace = arrWordSymbols[nSymbol]; // InWord is 1
    }
}

void CCodeMatcher::tryRules(quint64 nBits, int nAt) const
{
    for (; nBits != 0; nBits &= nBits - 1) {
        const auto nBit = int(qCountTrailingZeroBits(nBits));
        int &nNext = m_arrNext[size_t(nBit)];
        if (nAt < nNext) {
            continue;
        }
        if (nBit == WordBit) {
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
            }
        } else {
            tryPattern(nBit, nAt);
        }
    }
}

void CCodeMatcher::tryPattern(int nBit, int nAt) const
{
    const Pattern &pattern = m_lstPatterns[size_t(nBit)];
    CAnchoredPattern *const pMachine = m_arrMachines[size_t(nBit)];
    const int nBehind = pMachine->endOfMatch(*m_pLine, nAt);
    if (!pMachine->isUsable()) {
        // It grew too large just now.
        m_bCompiled = false;
        m_nPossible &= ~bit(nBit);
        m_nEnded |= bit(nBit);
        m_lstSlow.push_back(size_t(nBit));
        m_lstNext.assign(m_lstPatterns.size(), Next());
        return;
    }
    if (nBehind < 0) {
        return;
    }
    if (nBehind == nAt) {
        m_nEnded |= bit(nBit); // A match of no length ends the search.
        return;
    }
    take(pattern, nAt, nBehind - nAt);
    m_arrNext[size_t(nBit)] = nBehind;
}

void CCodeMatcher::take(const Pattern &pattern, int nStart, int nLength) const
{
    if (pattern.role == HighlightRole::Keyword) {
        m_lstHits.push_back({pattern.nRule, nStart, nLength});
        return;
    }
    (pattern.role == HighlightRole::Number ? m_lstNumbers : m_lstOperators)
        .push_back({nStart, std::min(nLength, m_nTo - nStart), pattern.role});
}

// What its machine found before it grew too large.
void CCodeMatcher::dropHits(const Pattern &pattern) const
{
    if (pattern.role != HighlightRole::Keyword) {
        (pattern.role == HighlightRole::Number ? m_lstNumbers : m_lstOperators).clear();
        return;
    }
    const auto isOfRule = [&pattern](const KeywordHit &hit) { return hit.nRule == pattern.nRule; };
    m_lstHits.erase(std::remove_if(m_lstHits.begin(), m_lstHits.end(), isOfRule), m_lstHits.end());
}

bool CCodeMatcher::searchSlowly(HighlightRole role, int nFrom, int nTo,
                                const AbortCheck &isAborted) const
{
    for (const size_t n : m_lstSlow) {
        if (m_lstPatterns[n].role != role) {
            continue;
        }
        if (isAborted && isAborted()) {
            return false;
        }
        dropHits(m_lstPatterns[n]);
        searchSlowly(n, nFrom, nTo);
    }
    return true;
}

void CCodeMatcher::searchSlowly(size_t nPattern, int nFrom, int nTo) const
{
    const Pattern &pattern = m_lstPatterns[nPattern];
    Next &next = m_lstNext[nPattern];
    const auto search = [&](int nAt) {
        next.nFrom = nAt;
        next.nStart = pattern.pattern.indexIn(*m_pLine, nAt);
        next.nLength = pattern.pattern.matchedLength();
    };
    const bool bAhead = next.nStart < 0 || next.nStart >= nFrom;
    if (next.nFrom < 0 || next.nFrom > nFrom || !bAhead) {
        search(nFrom);
    }
    while (next.nStart >= 0 && next.nStart < nTo && next.nLength > 0) {
        take(pattern, next.nStart, next.nLength);
        const int nBehind = next.nStart + next.nLength;
        search(pattern.role == HighlightRole::Keyword ? nBehind : std::min(nBehind, nTo));
    }
}

// By rule and then by position.
void CCodeMatcher::addKeywords() const
{
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
        m_lstKeywords.push_back({hit.nStart, hit.nLength, HighlightRole::Keyword});
        pBefore = &hit;
    }
}
