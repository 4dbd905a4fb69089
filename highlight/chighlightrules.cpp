#include "highlight/chighlightrules.h"

#include "highlight/cregionrules.h"

#include <QBrush>
#include <QColor>

namespace {

constexpr int g_nStateBits = 6;

bool isInsideTag(int nState)
{
    return nState > 0 && (nState & SHighlightState::InsideTag);
}

// The fixed bits that describe an open region.
int openBit(RegionRole role)
{
    return role == RegionRole::Comment ? int(SHighlightState::MultiLineComment)
        : role == RegionRole::String   ? int(SHighlightState::DoubleQuoted)
                                       : 0;
}

} // namespace

CHighlightRules::CHighlightRules() : m_strSingleLine(QStringLiteral("//"))
{
    m_comments.setSingleLine(m_strSingleLine);
}

CHighlightRules::CHighlightRules(const QVariantMap &mapDefinition)
{
    const QVariantMap mapLanguage = mapDefinition.value(QStringLiteral("language")).toMap();
    const QVariantMap mapGeneral = mapDefinition.value(QStringLiteral("general")).toMap();
    m_strLanguage = mapLanguage.value(QStringLiteral("name")).toString();
    readComments(mapGeneral.value(QStringLiteral("comments")).toList());
    readRegions(mapDefinition);
    m_own = CLanguage(mapDefinition, m_lstLanguages);
}

void CHighlightRules::readRegions(const QVariantMap &mapDefinition)
{
    m_bRegions = mapDefinition.contains(QStringLiteral("regions"));
    m_mapEmbedded = mapDefinition.value(QStringLiteral("embedded")).toMap();
    m_lstLanguages = QStringList {QString()} + m_mapEmbedded.keys();
    m_lstEmbedded.resize(size_t(m_lstLanguages.size()));
    m_lstDone.resize(size_t(m_lstLanguages.size()));
}

// The region is in another language than the definition's own.
const CLanguage &CHighlightRules::embedded(int nLanguage) const
{
    std::optional<CLanguage> &language = m_lstEmbedded[size_t(nLanguage)];
    if (!language) {
        const QString strName = m_lstLanguages.at(nLanguage);
        language.emplace(m_mapEmbedded.value(strName).toMap(), m_lstLanguages);
    }
    return *language;
}

void CHighlightRules::readComments(const QVariantList &lstComments)
{
    // Escapes only the stars of a pattern; the rest is syntax.
    const auto escaped = [](QString str) {
        return str.replace(QLatin1Char('*'), QLatin1String("\\*"));
    };
    for (const QVariant &comment : lstComments) {
        const QVariantMap mapComment = comment.toMap();
        const QString strName = mapComment.value(QStringLiteral("name")).toString().toLower();
        const QString strStart = mapComment.value(QStringLiteral("start")).toString();
        const QString strEnd = mapComment.value(QStringLiteral("end")).toString();
        if (strStart.isEmpty())
            continue;
        if (strName == QLatin1String("singleline")) {
            m_strSingleLine = strStart;
            m_comments.setSingleLine(strStart);
        } else if (strName == QLatin1String("multiline") && !strEnd.isEmpty()) {
            m_strMultiLineStart = strStart;
            m_strMultiLineEnd = strEnd;
            m_comments.setMultiLine(escaped(strStart), escaped(strEnd));
        }
    }
}

bool CHighlightRules::highlight(const QString &strText, int nPreviousState, SHighlightLine *pLine,
                                const AbortCheck &isAborted) const
{
    pLine->lstRanges.clear();
    pLine->nState = 0;
    if (isAborted && isAborted())
        return false;
    if (m_bRegions)
        return highlightRegions(strText, nPreviousState, pLine, isAborted);
    if (strText.isEmpty()) {
        pLine->nState = qMax(0, nPreviousState);
        return true;
    }
    bool bInsideTag = isInsideTag(nPreviousState);
    m_line.assign(strText);
    m_own.setLine(&m_line);
    if (!m_own.add(0, strText.size(), &bInsideTag, &pLine->lstRanges, isAborted))
        return false;
    pLine->nState = bInsideTag ? int(SHighlightState::InsideTag) : 0;
    m_comments.scan(m_line, nPreviousState, pLine);
    return true;
}

bool CHighlightRules::knows(int nState) const
{
    const int nStack = nState < 0 ? 0 : nState >> g_nStateBits;
    return nStack == 0 || !m_states.stackOf(nStack).empty();
}

bool CHighlightRules::highlightRegions(const QString &strText, int nPreviousState,
                                       SHighlightLine *pLine, const AbortCheck &isAborted) const
{
    const CRegionScanner::Languages languages = [this](int nLanguage) -> const CRegionRules & {
        return language(nLanguage).regions();
    };
    const int nBefore = nPreviousState < 0 ? 0 : nPreviousState >> g_nStateBits;
    if (strText.isEmpty() && nBefore == 0) {
        // Nothing ends where nothing is open.
        pLine->nState = isInsideTag(nPreviousState) ? int(SHighlightState::InsideTag) : 0;
        return true;
    }
    std::vector<SRegionSpan> &lstSpans = m_lstSpans;
    m_line.assign(strText);
    if (nBefore != m_nStack) {
        m_stack = m_states.stackOf(nBefore);
        m_nStack = m_stack.empty() ? 0 : nBefore;
    }
    CRegionScanner scanner(m_line, &m_stack, languages, &lstSpans);
    scanner.scan();
    if (scanner.hasChangedStack()) {
        m_nStack = m_states.numberOf(m_stack);
        if (m_nStack == 0)
            m_stack.clear(); // The table of stacks may be full.
    }
    bool bInsideTag = isInsideTag(nPreviousState);
    ++m_nLine;
    for (auto it = lstSpans.cbegin(); it != lstSpans.cend(); ++it) {
        if (it->role != RegionRole::Code || m_lstDone[size_t(it->nLanguage)] == m_nLine)
            continue;
        m_lstDone[size_t(it->nLanguage)] = m_nLine;
        if (!addCode(it, lstSpans.cend(), &bInsideTag, pLine, isAborted))
            return false;
    }
    for (const SRegionSpan &span : lstSpans) {
        if (span.role == RegionRole::Comment || span.role == RegionRole::String) {
            const bool bComment = span.role == RegionRole::Comment;
            pLine->lstRanges.push_back({span.nStart, span.nEnd - span.nStart,
                                        bComment ? HighlightRole::Comment : HighlightRole::String});
        }
    }
    pLine->nState = (m_nStack << g_nStateBits) | (bInsideTag ? int(SHighlightState::InsideTag) : 0)
        | openBit(scanner.roleAtEnd());
    return true;
}

// Takes the parts of one language from the first one on, and finds all their matches in one walk.
bool CHighlightRules::addCode(Spans first, Spans end, bool *pInsideTag, SHighlightLine *pLine,
                              const AbortCheck &isAborted) const
{
    const int nLanguage = first->nLanguage;
    const CLanguage &code = language(nLanguage);
    code.setLine(&m_line);
    for (auto it = first; it != end; ++it)
        if (it->role == RegionRole::Code && it->nLanguage == nLanguage
            && !code.add(it->nStart, it->nEnd, pInsideTag, &pLine->lstRanges, isAborted))
            return false;
    return true;
}

QTextCharFormat CHighlightRules::format(HighlightRole role)
{
    // Keyword, comment, string, number, operator.
    static const char *const arrColours[] = {"#8000FF", "#008000", "#008000", "#0000FF", "#ffaa00"};
    QTextCharFormat format;
    const QColor colour {QLatin1String(arrColours[int(role)])};
    format.setForeground(QBrush(colour, Qt::SolidPattern));
    return format;
}
