#include "highlight/cregionscanner.h"

#include "highlight/csymbolline.h"

#include <QtAlgorithms>
#include <algorithm>
#include <cstring>

namespace {

constexpr int g_nMaxInPlace = 50;

// Whether the region's end counts inside of what it holds.
bool isFirm(const SRegionFrame &frame, const SRegionContext &context)
{
    return context.bFirm && context.nEnd >= 0 && !frame.bWaits;
}

} // namespace

CRegionScanner::CRegionScanner(const CSymbolLine &line, RegionStack *pStack,
                               const Languages &languages, std::vector<SRegionSpan> *pSpans)
    : m_line(line),
      m_strText(line.text()),
      m_stack(*pStack),
      m_languages(languages),
      m_own(languages(0)),
      m_lstSpans(*pSpans)
{
    pSpans->clear();
}

// The key of the innermost region; empty outside of all regions.
const QString &CRegionScanner::key() const
{
    static const QString s_strNone;
    return m_stack.empty() ? s_strNone : m_stack.back().strKey;
}

const SRegionContext &CRegionScanner::contextOf(const SRegionFrame &frame) const
{
    return rulesOf(frame.nLanguage).context(frame.nContext);
}

// Columns that the line's blanks take, -1 when it has nothing else.
int CRegionScanner::indentationOf(const QString &strText)
{
    int nColumns = 0;
    for (const QChar ch : strText) {
        if (!ch.isSpace())
            return nColumns;
        nColumns = ch == QLatin1Char('\t') ? nColumns / 8 * 8 + 8 : nColumns + 1;
    }
    return -1;
}

// Called after another region became the innermost one.
void CRegionScanner::look()
{
    if (m_stack.empty()) {
        m_nLanguage = std::max(0, m_own.baseLanguage());
        m_pRules = &rulesOf(m_nLanguage);
        m_pContext = &m_pRules->context(0);
    } else {
        m_nLanguage = m_stack.back().nLanguage;
        m_pRules = &rulesOf(m_nLanguage);
        m_pContext = &m_pRules->context(m_stack.back().nContext);
    }
    m_bFirmBelow = false;
    const bool bAnywhere = !m_own.rulesAnywhere().empty();
    if (m_stack.size() <= 1 && !bAnywhere) {
        m_pAnywhere = nullptr;
        return;
    }
    m_overrides.reset();
    bool bOwn = false;
    for (size_t n = 0; n < m_stack.size(); ++n) {
        const CRegionRules &rules = rulesOf(m_stack[n].nLanguage);
        const SRegionContext &context = rules.context(m_stack[n].nContext);
        if (n + 1 < m_stack.size() && isFirm(m_stack[n], context)) {
            m_bFirmBelow = true;
            m_overrides |= rules.rule(context.nEnd).first;
        }
        bOwn = bOwn || m_stack[n].nLanguage == 0;
    }
    m_pAnywhere = !bOwn && bAnywhere ? &m_own : nullptr;
    if (m_pAnywhere)
        m_overrides |= m_own.symbolsAnywhere();
}

void CRegionScanner::scan()
{
    dropDedented();
    look();
    const int nSize = m_strText.size();
    int nInPlace = 0; // The number of regions that ended without a character.
    for (int n = nextCandidate(0); n <= nSize; n = nextCandidate(n)) {
        if (nInPlace < g_nMaxInPlace && applyAt(n)) {
            nInPlace = m_nAt == n ? nInPlace + 1 : 0;
            n = m_nAt;
        } else {
            nInPlace = 0;
            ++n;
        }
    }
    flush(nSize);
    endLine();
}

// Regions that last as long as lines are indented deeper end with the first line that is not.
void CRegionScanner::dropDedented()
{
    for (size_t n = 0; n < m_stack.size(); ++n) {
        if (contextOf(m_stack[n]).lines != SRegionContext::Indented)
            continue;
        if (m_nIndentation < 0)
            m_nIndentation = indentationOf(m_strText);
        if (m_nIndentation >= 0 && m_nIndentation <= m_stack[n].strKey.toInt()) {
            m_stack.resize(n);
            m_bChanged = true;
        }
    }
}

// The first place from nFrom on where a rule may match. The line's end is one, because regions may
// end there.
int CRegionScanner::nextCandidate(int nFrom) const
{
    const int nSize = m_strText.size();
    const uchar *const pSymbols = m_line.symbols();
    const auto &arrRules = m_pContext->arrRules;
    int n = nFrom;
    if (n == 0
        && (nSize == 0 || m_bFirmBelow || m_pAnywhere
            || m_pContext->arrRulesAtLineStart[pSymbols[0]]))
        return n;
    if (m_bFirmBelow || m_pAnywhere) {
        while (n < nSize && !arrRules[pSymbols[n]] && !m_overrides[pSymbols[n]])
            ++n;
        return n;
    }
    if (m_pContext->nStarts == 0 || n >= nSize)
        return std::max(n, nSize);
    if (m_pContext->nOnlyStart >= 0) {
        const void *const pNext = memchr(pSymbols + n, m_pContext->nOnlyStart, size_t(nSize - n));
        return pNext ? int(static_cast<const uchar *>(pNext) - pSymbols) : nSize;
    }
    while (!arrRules[pSymbols[n]])
        ++n; // The symbol of the line's end stops it.
    return n;
}

bool CRegionScanner::applyAt(int nAt)
{
    if ((m_bFirmBelow || m_pAnywhere) && applyOverride(nAt))
        return true;
    quint64 nBits = m_pContext->nRulesAtLineEnd;
    if (nAt < m_strText.size()) {
        const uchar *const pSymbols = m_line.symbols() + nAt;
        nBits = (nAt == 0 ? m_pContext->arrRulesAtLineStart : m_pContext->arrRules)[pSymbols[0]]
            & m_pContext->arrRulesBySecond[pSymbols[1]];
    }
    for (; nBits != 0; nBits &= nBits - 1) {
        const auto n = size_t(qCountTrailingZeroBits(nBits));
        if (apply(*m_pRules, m_pContext->lstRules[n], nAt))
            return true;
    }
    return false;
}

// The ends of outer regions that count in all their contents, the outermost first, and rules that
// begin anywhere.
bool CRegionScanner::applyOverride(int nAt)
{
    for (size_t n = 0; n + 1 < m_stack.size() && m_bFirmBelow; ++n) {
        const SRegionFrame &frame = m_stack[n];
        const CRegionRules &rules = rulesOf(frame.nLanguage);
        const SRegionContext &context = rules.context(frame.nContext);
        if (!isFirm(frame, context))
            continue;
        const int nBehind = endOfEnd(rules.rule(context.nEnd), nAt, frame.strKey);
        if (nBehind >= 0) {
            end(n, nAt, nBehind);
            return true;
        }
    }
    if (!m_pAnywhere || nAt == m_strText.size())
        return false;
    const CRegionRules &rules = *m_pAnywhere;
    for (const int nRule : rules.rulesAnywhere())
        if (begin(rules, rules.rule(nRule), 0, nAt))
            return true;
    return false;
}

bool CRegionScanner::isContinued() const
{
    int n = m_strText.size();
    while (n > 0 && m_strText.at(n - 1) == QLatin1Char('\\'))
        --n;
    return (m_strText.size() - n) % 2 == 1;
}

void CRegionScanner::endLine()
{
    if (m_stack.empty() && m_lstPending.empty())
        return;
    for (size_t n = 0; n < m_stack.size(); ++n) {
        const SRegionContext::Lines lines = contextOf(m_stack[n]).lines;
        if (lines == SRegionContext::One
            || (lines == SRegionContext::Backslash && !isContinued())) {
            m_stack.resize(n);
            m_bChanged = true;
        }
    }
    // The first region is entered, and the others wait below it.
    m_bChanged = m_bChanged || !m_lstPending.empty();
    for (auto it = m_lstPending.rbegin(); it != m_lstPending.rend(); ++it) {
        m_stack.push_back(*it);
        m_stack.back().bWaits = it + 1 != m_lstPending.rend();
    }
    m_lstPending.clear();
    look();
}

// Ends the present part before nTo.
void CRegionScanner::flush(int nTo)
{
    if (nTo <= m_nFrom)
        return;
    const SRegionSpan span {m_nFrom, nTo, m_pContext->role, m_nLanguage};
    if (!m_lstSpans.empty() && m_lstSpans.back().role == span.role
        && m_lstSpans.back().nLanguage == span.nLanguage)
        m_lstSpans.back().nEnd = nTo;
    else
        m_lstSpans.push_back(span);
    m_nFrom = nTo;
}
