// The tables of what may begin at which symbol and what a line has to hold. They are made for the
// first line.
#include "highlight/canchoredpattern.h"
#include "highlight/ccodematcher.h"
#include "highlight/cpatternautomaton.h"
#include "highlight/csymbolline.h"
#include "highlight/fixedrules.h"
#include "highlight/highlightline.h"

#include <algorithm>
#include <cstring>

namespace {

// up to so many symbols, searching for each is quicker than looking at all characters
constexpr size_t g_nMaxSearched = 4;

} // namespace

void CCodeMatcher::compile() const
{
    m_bCompiled = true;
    m_arrStarts = {};
    m_arrSeconds.fill(~quint64(0));
    m_nKeywordBits = bit(WordBit);
    m_nRun = 0;
    m_lstSets.clear();
    m_arrSets = {};
    m_lstAsked.clear();
    const CSymbolLine none;
    const int nPatterns = std::min(int(m_lstPatterns.size()), int(g_nMaxPatterns));
    for (int n = 0; n < nPatterns; ++n) {
        CAnchoredPattern *const pMachine = m_lstPatterns[size_t(n)].pattern.machineFor(none);
        m_arrMachines[size_t(n)] = pMachine;
        if (pMachine) {
            m_nRun |= bit(n);
            enter(n, *pMachine);
        }
        m_nKeywordBits |= m_lstPatterns[size_t(n)].role == HighlightRole::Keyword ? bit(n) : 0;
    }
    for (size_t n = 0; n < m_lstPatterns.size(); ++n)
        require(n);
    listSetSymbols();
    enterFixedRules();
}

void CCodeMatcher::listSetSymbols() const
{
    m_lstSetSymbols.clear();
    for (size_t nSymbol = 0; nSymbol < SymbolCount; ++nSymbol)
        if (m_arrSets[nSymbol])
            m_lstSetSymbols.push_back(uchar(nSymbol));
    if (m_lstSetSymbols.size() > g_nMaxSearched)
        m_lstSetSymbols.clear();
}

// Enters numbers, operators and words, and derives the rest from all entries.
void CCodeMatcher::enterFixedRules() const
{
    for (int nSymbol = 0; nSymbol < SymbolCount; ++nSymbol) {
        const bool bNumber = !m_bOwnNumbers && mayStartNumber(nSymbol);
        const bool bOperator = !m_bOwnOperators && mayStartOperator(nSymbol);
        const quint64 nFixed = (bNumber ? bit(NumberBit) : 0) | (bOperator ? bit(OperatorBit) : 0);
        for (auto &arrStarts : m_arrStarts)
            arrStarts[size_t(nSymbol)] |= nFixed;
        const quint64 nWord = m_table.mayStartWith(nSymbol) ? bit(WordBit) : 0;
        m_arrStarts[Elsewhere][size_t(nSymbol)] |= nWord;
        m_arrStarts[AtStart][size_t(nSymbol)] |= nWord;
    }
    m_nBehindStart = 0;
    for (size_t nSymbol = 0; nSymbol < SymbolCount; ++nSymbol)
        m_nBehindStart |= m_arrStarts[Elsewhere][nSymbol] | m_arrStarts[InWord][nSymbol];
}

void CCodeMatcher::enter(int nBit, const CAnchoredPattern &pattern) const
{
    const auto &first = pattern.firstByContext();
    const SymbolSet second = pattern.mayGoOnWith();
    for (size_t nSymbol = 0; nSymbol < SymbolCount; ++nSymbol) {
        m_arrSeconds[nSymbol] &= second[nSymbol] ? ~quint64(0) : ~bit(nBit);
        m_arrStarts[Elsewhere][nSymbol] |= first[0][nSymbol] ? bit(nBit) : 0;
        m_arrStarts[InWord][nSymbol] |=
            first[CPatternAutomaton::BehindWord][nSymbol] ? bit(nBit) : 0;
        m_arrStarts[AtStart][nSymbol] |=
            first[CPatternAutomaton::AtLineStart][nSymbol] ? bit(nBit) : 0;
    }
}

// What the line has to hold for the pattern. Symbols that it begins with are not worth a search,
// and neither is a pattern that is tried only at the line's start.
void CCodeMatcher::require(size_t nPattern) const
{
    const SPattern &pattern = m_lstPatterns[nPattern];
    const bool bRun = nPattern < g_nMaxPatterns && (m_nRun & bit(int(nPattern)));
    const CAnchoredPattern *const pMachine = bRun ? m_arrMachines[nPattern] : nullptr;
    pattern.nRequired = 0;
    for (const SymbolSet &set : pattern.pattern.required().sets()) {
        const bool bKnown =
            pMachine && (pMachine->isOnlyAtLineStart() || (pMachine->mayStartWith() & ~set).none());
        pattern.nRequired |= bKnown ? 0 : numberOf(set);
    }
    if (!bRun || pattern.nRequired)
        m_lstAsked.push_back(nPattern);
}

// The bit of the set. With too many sets it is 0, which lets more lines through and misses no
// match.
quint64 CCodeMatcher::numberOf(const SymbolSet &set) const
{
    const auto it = std::find(m_lstSets.begin(), m_lstSets.end(), set);
    const auto n = int(it - m_lstSets.begin());
    if (it == m_lstSets.end()) {
        if (n == 64)
            return 0;
        m_lstSets.push_back(set);
        for (size_t nSymbol = 0; nSymbol < SymbolCount; ++nSymbol)
            m_arrSets[nSymbol] |= set[nSymbol] ? bit(n) : 0;
    }
    return bit(n);
}

quint64 CCodeMatcher::requirementsIn(const CSymbolLine &line) const
{
    quint64 nSets = 0;
    if (!m_lstSetSymbols.empty()) {
        for (const uchar nSymbol : m_lstSetSymbols)
            if (memchr(line.symbols(), nSymbol, size_t(line.size())))
                nSets |= m_arrSets[nSymbol];
    } else if (!m_lstSets.empty()) {
        const uchar *const pSymbols = line.symbols();
        for (int n = 0; n < line.size(); ++n)
            nSets |= m_arrSets[pSymbols[n]];
    }
    return nSets;
}

void CCodeMatcher::setLine(const CSymbolLine *pLine) const
{
    if (!m_bCompiled)
        compile();
    m_pLine = pLine;
    m_lstSlow.clear();
    m_nPossible = bit(NumberBit) | bit(OperatorBit) | bit(WordBit) | m_nRun;
    if (m_sensitivity == Qt::CaseInsensitive && pLine->hasFolding()) {
        m_nPossible &= ~m_nRun;
        for (size_t n = 0; n < m_lstPatterns.size(); ++n)
            m_lstSlow.push_back(n);
    } else if (!m_lstAsked.empty()) {
        ask(*pLine);
    }
    if (!m_lstSlow.empty())
        m_lstNext.assign(m_lstPatterns.size(), SNext());
}

// Leaves out the patterns that the line cannot hold.
void CCodeMatcher::ask(const CSymbolLine &line) const
{
    const quint64 nLacking = ~requirementsIn(line);
    for (const size_t n : m_lstAsked) {
        const bool bRun = n < g_nMaxPatterns && (m_nRun & bit(int(n)));
        if (m_lstPatterns[n].nRequired & nLacking)
            m_nPossible &= bRun ? ~bit(int(n)) : ~quint64(0);
        else if (!bRun)
            m_lstSlow.push_back(n);
    }
}
