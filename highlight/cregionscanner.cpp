#include "highlight/cregionscanner.h"

namespace {

constexpr size_t nMaxDepth = 24;
constexpr int nMaxKey = 250;
constexpr int nMaxInPlace = 50;

// Columns that the line's blanks take, -1 when it has nothing else.
int indentationOf(const QString &strText)
{
    int nColumns = 0;
    for (const QChar ch : strText) {
        if (!ch.isSpace()) {
            return nColumns;
        }
        nColumns = ch == QLatin1Char('\t') ? nColumns / 8 * 8 + 8 : nColumns + 1;
    }
    return -1;
}

QString mirrored(const QString &strKey)
{
    const QString strOpening = QStringLiteral("([{<");
    const int n = strKey.size() == 1 ? strOpening.indexOf(strKey) : -1;
    return n < 0 ? strKey : QString(QStringLiteral(")]}>").at(n));
}

// Whether the region's end counts inside of what it holds.
bool isFirm(const RegionFrame &frame, const RegionContext &context)
{
    return context.bFirm && context.nEnd >= 0 && !frame.bWaits;
}

} // namespace

CRegionScanner::CRegionScanner(const QString &strText, RegionStack stack,
                               const Languages &languages, std::vector<RegionSpan> *pSpans)
    : m_strText(strText),
      m_stack(std::move(stack)),
      m_languages(languages),
      m_own(languages(0)),
      m_lstSpans(*pSpans)
{
    pSpans->clear();
}

// Of the innermost region; there is none outside of all of them.
const QString &CRegionScanner::key() const
{
    static const QString s_strNone;
    return m_stack.empty() ? s_strNone : m_stack.back().strKey;
}

const RegionContext &CRegionScanner::contextOf(const RegionFrame &frame) const
{
    return m_languages(frame.nLanguage).context(frame.nContext);
}

// Looks at the innermost region, after another one became that.
void CRegionScanner::look()
{
    if (m_stack.empty()) {
        m_nLanguage = std::max(0, m_own.baseLanguage());
        m_pRules = m_nLanguage == 0 ? &m_own : &m_languages(m_nLanguage);
        m_pContext = &m_pRules->context(0);
    } else {
        m_nLanguage = m_stack.back().nLanguage;
        m_pRules = &m_languages(m_nLanguage);
        m_pContext = &m_pRules->context(m_stack.back().nContext);
    }
    m_bFirmBelow = false;
    m_overrides.reset();
    bool bOwn = false;
    for (size_t n = 0; n < m_stack.size(); ++n) {
        const CRegionRules &rules = m_languages(m_stack[n].nLanguage);
        const RegionContext &context = rules.context(m_stack[n].nContext);
        if (n + 1 < m_stack.size() && isFirm(m_stack[n], context)) {
            m_bFirmBelow = true;
            m_overrides |= rules.rule(context.nEnd).first;
        }
        bOwn = bOwn || m_stack[n].nLanguage == 0;
    }
    m_pAnywhere = !bOwn && !m_own.rulesAnywhere().empty() ? &m_own : nullptr;
    if (m_pAnywhere) {
        m_overrides |= m_own.symbolsAnywhere();
    }
}

void CRegionScanner::scan()
{
    dropDedented();
    look();
    const int nSize = m_strText.size();
    int nInPlace = 0; // regions that end and follow each other where they stand
    for (int n = nextCandidate(0); n <= nSize; n = nextCandidate(n)) {
        if (nInPlace < nMaxInPlace && applyAt(n)) {
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

// Regions that are as deep as their line's blanks end with the first line that is not deeper.
void CRegionScanner::dropDedented()
{
    for (size_t n = 0; n < m_stack.size(); ++n) {
        if (contextOf(m_stack[n]).lines != RegionContext::Indented) {
            continue;
        }
        if (m_nIndentation < 0) {
            m_nIndentation = indentationOf(m_strText);
        }
        if (m_nIndentation >= 0 && m_nIndentation <= m_stack[n].strKey.toInt()) {
            m_stack.resize(n);
        }
    }
}

// The first place from nFrom on where a rule may match; the line's end, where ends may, is one.
int CRegionScanner::nextCandidate(int nFrom) const
{
    const int nSize = m_strText.size();
    const QChar *const pch = m_strText.constData();
    const auto &arrRules = m_pContext->arrRules;
    int n = nFrom;
    if (n == 0) {
        return n;
    }
    if (m_bFirmBelow || m_pAnywhere) {
        while (n < nSize && !arrRules[size_t(symbolOf(pch[n]))]
               && !m_overrides[size_t(symbolOf(pch[n]))]) {
            ++n;
        }
        return n;
    }
    while (n < nSize && !arrRules[size_t(symbolOf(pch[n]))]) {
        ++n;
    }
    return n;
}

bool CRegionScanner::applyAt(int nAt)
{
    if ((m_bFirmBelow || m_pAnywhere) && applyOverride(nAt)) {
        return true;
    }
    quint64 nBits = m_pContext->nRulesAtLineEnd;
    if (nAt < m_strText.size()) {
        const auto nSymbol = size_t(symbolOf(m_strText.at(nAt)));
        nBits = (nAt == 0 ? m_pContext->arrRulesAtLineStart : m_pContext->arrRules)[nSymbol];
    }
    for (size_t n = 0; nBits != 0; ++n, nBits >>= 1) {
        if ((nBits & 1) && apply(*m_pRules, m_pContext->lstRules[n], nAt)) {
            return true;
        }
    }
    return false;
}

// The ends of regions further out that count in all that they hold, the outermost first, and what
// begins anywhere.
bool CRegionScanner::applyOverride(int nAt)
{
    for (size_t n = 0; n + 1 < m_stack.size() && m_bFirmBelow; ++n) {
        const RegionFrame &frame = m_stack[n];
        const CRegionRules &rules = m_languages(frame.nLanguage);
        const RegionContext &context = rules.context(frame.nContext);
        if (!isFirm(frame, context)) {
            continue;
        }
        const int nBehind = endOfEnd(rules.rule(context.nEnd), nAt, frame.strKey);
        if (nBehind >= 0) {
            end(n, nAt, nBehind);
            return true;
        }
    }
    if (!m_pAnywhere || nAt == m_strText.size()) {
        return false;
    }
    const CRegionRules &rules = *m_pAnywhere;
    for (const int nRule : rules.rulesAnywhere()) {
        if (begin(rules, rules.rule(nRule), 0, nAt)) {
            return true;
        }
    }
    return false;
}

bool CRegionScanner::apply(const CRegionRules &rules, int nRule, int nAt)
{
    RegionRule &rule = rules.rule(nRule);
    if (rule.bHasAfter && !rule.after.matchesBefore(m_strText, nAt)) {
        return false;
    }
    if (rule.kind == RegionRule::Begin || rule.kind == RegionRule::Nest) {
        return begin(rules, rule, m_nLanguage, nAt);
    }
    if (rule.kind == RegionRule::End) {
        const int nBehind = endOfEnd(rule, nAt, key());
        if (nBehind < 0) {
            return false;
        }
        end(m_stack.size() - 1, nAt, nBehind);
        return true;
    }
    const int nBehind = rule.start.endOfMatch(m_strText, nAt);
    if (nBehind <= nAt) {
        return false;
    }
    if (rule.bHasRole) {
        flush(nAt);
        m_lstSpans.push_back({nAt, nBehind, rule.role, m_nLanguage});
        m_nFrom = nBehind;
    }
    m_nAt = nBehind;
    return true;
}

bool CRegionScanner::begin(const CRegionRules &rules, RegionRule &rule, int nLanguage, int nAt)
{
    RegionFrame frame {nLanguage, rule.nContext, QString(), false};
    int nBehind = -1;
    if (rule.kind == RegionRule::Nest) {
        frame.strKey = key();
        const bool bKeyIsHere = rule.bHasKey && mirrored(frame.strKey) != frame.strKey
            && m_strText.at(nAt) == frame.strKey.at(0);
        nBehind =
            rule.bHasKey ? (bKeyIsHere ? nAt + 1 : -1) : rule.start.endOfMatch(m_strText, nAt);
    } else {
        nBehind = endOfBegin(rule, nAt, &frame.strKey);
    }
    if (nBehind <= nAt || m_stack.size() + m_lstPending.size() >= nMaxDepth
        || frame.strKey.size() > nMaxKey) {
        return false;
    }
    if (rules.context(rule.nContext).lines == RegionContext::Indented) {
        frame.strKey = QString::number(std::max(0, indentationOf(m_strText)));
    }
    if (rule.bFromNextLine) {
        m_lstPending.push_back(frame);
        m_nAt = nBehind;
        return true;
    }
    push(frame, nAt, nBehind);
    return true;
}

// The text from nAt to nBehind, which begins the region, belongs to it.
void CRegionScanner::push(const RegionFrame &frame, int nAt, int nBehind)
{
    flush(nAt);
    m_stack.push_back(frame);
    look();
    m_nAt = nBehind;
    if (m_pContext->nEmbedded >= 0 && m_stack.size() < nMaxDepth) {
        const int nEmbedded = m_pContext->nEmbedded;
        flush(nBehind);
        m_stack.push_back({nEmbedded, 0, QString(), false});
        look();
    }
}

// Ends the region at that depth with all that it holds.
void CRegionScanner::end(size_t nDepth, int nAt, int nBehind)
{
    const RegionFrame frame = m_stack[nDepth];
    const RegionContext &context = contextOf(frame);
    flush(nAt);
    // An end that is not of its region is of what holds it, below the ones that wait.
    size_t nKept = nDepth + 1;
    while (context.bFromNextLine && nKept > 0 && (nKept > nDepth || m_stack[nKept - 1].bWaits)) {
        --nKept;
    }
    const RegionStack waiting(m_stack.begin() + std::ptrdiff_t(std::min(nKept, nDepth)),
                              m_stack.begin() + std::ptrdiff_t(nDepth));
    m_stack.resize(nKept);
    look();
    flush(nBehind);
    m_stack.resize(nDepth - waiting.size());
    m_stack.insert(m_stack.end(), waiting.begin(), waiting.end());
    if (!m_stack.empty()) {
        m_stack.back().bWaits = false;
    }
    look();
    m_nAt = nBehind;
    if (context.nSecond >= 0) {
        beginSecond(frame, context);
    } else if (context.nNext >= 0) {
        push({frame.nLanguage, context.nNext, QString(), false}, nBehind, nBehind);
    }
}

// The second half begins at once, or with a delimiter of its own when the first one was in
// brackets.
void CRegionScanner::beginSecond(const RegionFrame &first, const RegionContext &context)
{
    RegionFrame second {first.nLanguage, context.nSecond, first.strKey, false};
    int nAt = m_nAt;
    int nBehind = nAt;
    if (mirrored(first.strKey) != first.strKey) {
        while (nAt < m_strText.size() && m_strText.at(nAt).isSpace()) {
            ++nAt;
        }
        if (nAt == m_strText.size() || m_strText.at(nAt).isLetterOrNumber()) {
            return;
        }
        second.strKey = m_strText.mid(nAt, 1);
        nBehind = nAt + 1;
    }
    push(second, nAt, nBehind);
}

int CRegionScanner::endOfBegin(RegionRule &rule, int nAt, QString *pKey)
{
    if (rule.bHasAfter && !rule.after.matchesBefore(m_strText, nAt)) {
        return -1;
    }
    int n = rule.bHasStart ? rule.start.endOfMatch(m_strText, nAt) : nAt;
    if (n >= 0 && rule.bHasKey) {
        const int nKey = n;
        n = rule.key.endOfMatch(m_strText, nKey);
        *pKey = n < 0 ? QString() : m_strText.mid(nKey, n - nKey);
    }
    return n >= 0 && rule.bHasThen ? rule.then.endOfMatch(m_strText, n) : n;
}

int CRegionScanner::endOfEnd(RegionRule &rule, int nAt, const QString &strKey)
{
    if (!rule.bHasKey) {
        return rule.start.endOfMatch(m_strText, nAt);
    }
    const QString strEnd = rule.bMirrored ? mirrored(strKey) : strKey;
    m_lstEnds.assign(1, nAt);
    if (rule.bHasStart) {
        m_lstEnds.clear();
        rule.start.findEnds(m_strText, nAt, &m_lstEnds);
    }
    for (; !m_lstEnds.empty(); m_lstEnds.pop_back()) {
        const int nKey = m_lstEnds.back();
        if (m_strText.midRef(nKey, strEnd.size()) != strEnd) {
            continue;
        }
        const int nBehind = nKey + strEnd.size();
        const int nEnd = rule.bHasThen ? rule.then.endOfMatch(m_strText, nBehind) : nBehind;
        if (nEnd >= 0) {
            return nEnd;
        }
    }
    return -1;
}

bool CRegionScanner::isContinued() const
{
    int n = m_strText.size();
    while (n > 0 && m_strText.at(n - 1) == QLatin1Char('\\')) {
        --n;
    }
    return (m_strText.size() - n) % 2 == 1;
}

void CRegionScanner::endLine()
{
    if (m_stack.empty() && m_lstPending.empty()) {
        return;
    }
    for (size_t n = 0; n < m_stack.size(); ++n) {
        const RegionContext::Lines lines = contextOf(m_stack[n]).lines;
        if (lines == RegionContext::One || (lines == RegionContext::Backslash && !isContinued())) {
            m_stack.resize(n);
        }
    }
    // The first comes first, and the others wait below it.
    for (auto it = m_lstPending.rbegin(); it != m_lstPending.rend(); ++it) {
        m_stack.push_back(*it);
        m_stack.back().bWaits = it + 1 != m_lstPending.rend();
    }
    m_lstPending.clear();
    look();
}

// Ends the part under way before nTo.
void CRegionScanner::flush(int nTo)
{
    if (nTo <= m_nFrom) {
        return;
    }
    const RegionSpan span {m_nFrom, nTo, m_pContext->role, m_nLanguage};
    if (!m_lstSpans.empty() && m_lstSpans.back().role == span.role
        && m_lstSpans.back().nLanguage == span.nLanguage) {
        m_lstSpans.back().nEnd = nTo;
    } else {
        m_lstSpans.push_back(span);
    }
    m_nFrom = nTo;
}
