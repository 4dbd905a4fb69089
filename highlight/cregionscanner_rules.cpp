// How the rules of a region begin and end others.
#include "highlight/cregionscanner.h"

namespace {

constexpr size_t g_nMaxDepth = 24;
constexpr int g_nMaxKey = 250;

QString mirrored(const QString &strKey)
{
    const QString strOpening = QStringLiteral("([{<");
    const int n = strKey.size() == 1 ? strOpening.indexOf(strKey) : -1;
    return n < 0 ? strKey : QString(QStringLiteral(")]}>").at(n));
}

} // namespace

bool CRegionScanner::apply(const CRegionRules &rules, int nRule, int nAt)
{
    SRegionRule &rule = rules.rule(nRule);
    if (rule.kind == SRegionRule::Begin || rule.kind == SRegionRule::Nest)
        return begin(rules, rule, m_nLanguage, nAt);
    if (rule.kind == SRegionRule::End) {
        const int nBehind = endOfEnd(rule, nAt, key());
        if (nBehind < 0)
            return false;
        end(m_stack.size() - 1, nAt, nBehind);
        return true;
    }
    const int nBehind = rule.start.endOfMatch(m_line, nAt);
    if (nBehind <= nAt || (rule.bHasAfter && !rule.after.matchesBefore(m_line, nAt)))
        return false;
    if (rule.bHasRole) {
        flush(nAt);
        m_lstSpans.push_back({nAt, nBehind, rule.role, m_nLanguage});
        m_nFrom = nBehind;
    }
    m_nAt = nBehind;
    return true;
}

bool CRegionScanner::begin(const CRegionRules &rules, SRegionRule &rule, int nLanguage, int nAt)
{
    QString strKey;
    const int nBehind = rule.kind == SRegionRule::Nest ? endOfNest(rule, nAt, &strKey)
                                                       : endOfBegin(rule, nAt, &strKey);
    if (nBehind <= nAt || m_stack.size() + m_lstPending.size() >= g_nMaxDepth
        || strKey.size() > g_nMaxKey)
        return false;
    SRegionFrame frame {nLanguage, rule.nContext, std::move(strKey), false};
    if (rules.context(rule.nContext).lines == SRegionContext::Indented)
        frame.strKey = QString::number(std::max(0, indentationOf(m_strText)));
    if (rule.bFromNextLine) {
        m_lstPending.push_back(std::move(frame));
        m_nAt = nBehind;
        return true;
    }
    push(std::move(frame), nAt, nBehind);
    return true;
}

// The text from nAt to nBehind, which begins the region, belongs to it.
void CRegionScanner::push(SRegionFrame frame, int nAt, int nBehind)
{
    flush(nAt);
    m_bChanged = true;
    m_stack.push_back(std::move(frame));
    look();
    m_nAt = nBehind;
    if (m_pContext->nEmbedded >= 0 && m_stack.size() < g_nMaxDepth) {
        const int nEmbedded = m_pContext->nEmbedded;
        flush(nBehind);
        m_stack.push_back({nEmbedded, 0, QString(), false});
        look();
    }
}

// Ends the region at that depth with all that it holds.
void CRegionScanner::end(size_t nDepth, int nAt, int nBehind)
{
    m_bChanged = true;
    const SRegionFrame frame = std::move(m_stack[nDepth]);
    const SRegionContext &context = contextOf(frame);
    flush(nAt);
    if (context.bFromNextLine) {
        endBelowWaiting(nDepth, nBehind);
    } else {
        if (m_stack.size() > nDepth + 1) {
            m_stack.resize(nDepth + 1);
            look();
        }
        flush(nBehind);
        m_stack.pop_back();
    }
    if (!m_stack.empty())
        m_stack.back().bWaits = false;
    look();
    m_nAt = nBehind;
    if (context.nSecond >= 0)
        beginSecond(frame, context);
    else if (context.nNext >= 0)
        push({frame.nLanguage, context.nNext, QString(), false}, nBehind, nBehind);
}

// An end that does not belong to its region belongs to the region around it, below those that wait.
void CRegionScanner::endBelowWaiting(size_t nDepth, int nBehind)
{
    size_t nKept = nDepth;
    while (nKept > 0 && m_stack[nKept - 1].bWaits)
        --nKept;
    const RegionStack waiting(m_stack.begin() + std::ptrdiff_t(nKept),
                              m_stack.begin() + std::ptrdiff_t(nDepth));
    m_stack.resize(nKept);
    look();
    flush(nBehind);
    m_stack.insert(m_stack.end(), waiting.begin(), waiting.end());
}

// The second half begins at once, or with a delimiter of its own when the first one was in
// brackets.
void CRegionScanner::beginSecond(const SRegionFrame &first, const SRegionContext &context)
{
    SRegionFrame second {first.nLanguage, context.nSecond, first.strKey, false};
    int nAt = m_nAt;
    int nBehind = nAt;
    if (mirrored(first.strKey) != first.strKey) {
        while (nAt < m_strText.size() && m_strText.at(nAt).isSpace())
            ++nAt;
        if (nAt == m_strText.size() || m_strText.at(nAt).isLetterOrNumber())
            return;
        second.strKey = m_strText.mid(nAt, 1);
        nBehind = nAt + 1;
    }
    push(second, nAt, nBehind);
}

// A region of brackets nests in those of its key.
int CRegionScanner::endOfNest(SRegionRule &rule, int nAt, QString *pKey)
{
    *pKey = key();
    if (!rule.bHasKey)
        return rule.start.endOfMatch(m_line, nAt);
    return mirrored(*pKey) != *pKey && m_strText.at(nAt) == pKey->at(0) ? nAt + 1 : -1;
}

int CRegionScanner::endOfBegin(SRegionRule &rule, int nAt, QString *pKey)
{
    if (rule.bOneSymbol)
        return rule.first[size_t(m_line.symbols()[nAt])] ? nAt + 1
                                                         : -1; // The line's end is no symbol.
    int n = rule.bHasStart ? rule.start.endOfMatch(m_line, nAt) : nAt;
    if (n < 0 || (rule.bHasAfter && !rule.after.matchesBefore(m_line, nAt)))
        return -1;
    if (rule.bHasKey) {
        const int nKey = n;
        n = rule.key.endOfMatch(m_line, nKey);
        *pKey = n < 0 ? QString() : m_strText.mid(nKey, n - nKey);
    }
    return n >= 0 && rule.bHasThen ? rule.then.endOfMatch(m_line, n) : n;
}

int CRegionScanner::endOfEnd(SRegionRule &rule, int nAt, const QString &strKey)
{
    if (rule.bOneSymbol) {
        const size_t nSymbol = m_line.symbols()[nAt];
        return nSymbol != LineEndSymbol && rule.first[nSymbol] ? nAt + 1 : -1;
    }
    if (!rule.bHasKey)
        return rule.start.endOfMatch(m_line, nAt);
    if (!rule.bHasStart && !rule.bMirrored && !strKey.isEmpty()
        && (nAt == m_strText.size() || m_strText.at(nAt) != strKey.at(0)))
        return -1; // It is asked at each place of the region.
    const QString strEnd = rule.bMirrored ? mirrored(strKey) : strKey;
    m_lstEnds.assign(1, nAt);
    if (rule.bHasStart) {
        m_lstEnds.clear();
        rule.start.findEnds(m_line, nAt, &m_lstEnds);
    }
    for (; !m_lstEnds.empty(); m_lstEnds.pop_back()) {
        const int nKey = m_lstEnds.back();
        if (m_strText.midRef(nKey, strEnd.size()) != strEnd)
            continue;
        const int nBehind = nKey + strEnd.size();
        const int nEnd = rule.bHasThen ? rule.then.endOfMatch(m_line, nBehind) : nBehind;
        if (nEnd >= 0)
            return nEnd;
    }
    return -1;
}
