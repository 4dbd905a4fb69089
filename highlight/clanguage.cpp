#include "highlight/clanguage.h"

#include "highlight/fixedrules.h"

namespace {

std::optional<CLinePattern> ownPattern(const QVariantMap &mapRegions, const QString &strTag,
                                       Qt::CaseSensitivity sensitivity)
{
    const QVariantList lstChildren = mapRegions.value(QStringLiteral("children")).toList();
    for (const QVariant &child : lstChildren) {
        const QVariantMap mapChild = child.toMap();
        if (mapChild.value(QStringLiteral("tag")).toString().toLower() == strTag) {
            const QVariantMap mapAttributes = mapChild.value(QStringLiteral("attributes")).toMap();
            return CLinePattern(mapAttributes.value(QStringLiteral("pattern")).toString(),
                                sensitivity);
        }
    }
    return std::nullopt;
}

} // namespace

CLanguage::CLanguage(const QVariantMap &mapDefinition, const QStringList &lstLanguages)
{
    const QVariantMap mapGeneral = mapDefinition.value(QStringLiteral("general")).toMap();
    const QVariantMap mapHighlighting = mapDefinition.value(QStringLiteral("highlighting")).toMap();
    const QVariantMap mapKeywords = mapGeneral.value(QStringLiteral("keywords")).toMap();
    const QVariantMap mapRegions = mapDefinition.value(QStringLiteral("regions")).toMap();
    const bool bSensitive = mapKeywords.value(QStringLiteral("casesensitive")).toBool();
    const Qt::CaseSensitivity sensitivity = bSensitive ? Qt::CaseSensitive : Qt::CaseInsensitive;
    m_keywords = CKeywordMatcher(sensitivity);
    readContexts(mapHighlighting.value(QStringLiteral("contexts")).toList());
    readKeywords(mapHighlighting);
    m_regions = CRegionRules(mapRegions, lstLanguages, sensitivity);
    m_numbers = ownPattern(mapRegions, QStringLiteral("numbers"), sensitivity);
    m_operators = ownPattern(mapRegions, QStringLiteral("operators"), sensitivity);
}

void CLanguage::readContexts(const QVariantList &lstContexts)
{
    for (const QVariant &context : lstContexts) {
        const QVariantMap mapContext = context.toMap();
        const QString strName = mapContext.value(QStringLiteral("name")).toString();
        const bool bOpen = strName == QLatin1String("El Open");
        if (!bOpen && strName != QLatin1String("El Close")) {
            continue;
        }
        const QVariantList lstChildren = mapContext.value(QStringLiteral("children")).toList();
        for (const QVariant &child : lstChildren) {
            const QVariantMap mapChild = child.toMap();
            if (mapChild.value(QStringLiteral("tag")).toString() == QLatin1String("DetectChar")) {
                const CLinePattern pattern(mapChild.value(QStringLiteral("char")).toString());
                (bOpen ? m_tagOpen : m_tagClose) = pattern;
            }
        }
    }
    if (m_tagOpen.isEmpty() || m_tagClose.isEmpty()) {
        m_tagOpen = m_tagClose = CLinePattern();
    }
}

void CLanguage::readKeywords(const QVariantMap &mapHighlighting)
{
    for (auto it = mapHighlighting.begin(); it != mapHighlighting.end(); ++it) {
        const bool bPatterns = it.key() == QLatin1String("reg_exp");
        const QStringList lstItems = it.value().toStringList();
        for (const QString &strRaw : lstItems) {
            const QString strItem = strRaw.trimmed();
            if (strItem.isEmpty()) {
                continue;
            }
            if (bPatterns) {
                m_keywords.addPattern(strItem);
            } else {
                m_keywords.addWord(strItem);
            }
        }
    }
}

CLanguage::CCode::CCode(const CLanguage &language, const QString &strText)
    : m_language(language), m_strText(strText), m_search(language.m_keywords, strText)
{
}

bool CLanguage::CCode::add(int nFrom, int nTo, bool *pInsideTag,
                           std::vector<HighlightRange> *pRanges, const AbortCheck &isAborted)
{
    if (m_language.m_numbers) {
        addMatches(*m_language.m_numbers, nFrom, nTo, HighlightRole::Number, &m_nextNumber,
                   pRanges);
    } else {
        addNumbers(m_strText, nFrom, nTo, pRanges);
    }
    if (m_language.m_operators) {
        addMatches(*m_language.m_operators, nFrom, nTo, HighlightRole::Operator, &m_nextOperator,
                   pRanges);
    } else {
        addOperators(m_strText, nFrom, nTo, pRanges);
    }
    return addKeywords(nFrom, nTo, pInsideTag, pRanges, isAborted);
}

void CLanguage::CCode::addMatches(const CLinePattern &pattern, int nFrom, int nTo,
                                  HighlightRole role, Next *pNext,
                                  std::vector<HighlightRange> *pRanges) const
{
    if (m_search.hasSymbols() && !pattern.mayMatch(m_search.symbols())) {
        return;
    }
    const auto search = [&](int nAt) {
        pNext->nFrom = nAt;
        pNext->nStart = pattern.indexIn(m_strText, nAt);
        pNext->nLength = pattern.matchedLength();
    };
    const bool bAhead = pNext->nStart < 0 || pNext->nStart >= nFrom;
    if (pNext->nFrom < 0 || pNext->nFrom > nFrom || !bAhead) {
        search(nFrom);
    }
    while (pNext->nStart >= 0 && pNext->nStart < nTo && pNext->nLength > 0) {
        const int nEnd = std::min(nTo, pNext->nStart + pNext->nLength);
        pRanges->push_back({pNext->nStart, nEnd - pNext->nStart, role});
        search(nEnd);
    }
}

bool CLanguage::CCode::addKeywords(int nFrom, int nTo, bool *pInsideTag,
                                   std::vector<HighlightRange> *pRanges,
                                   const AbortCheck &isAborted)
{
    const int nSize = m_strText.size();
    const bool bToEnd = nTo == nSize;
    const auto addUpTo = [&](int nStart, int nEnd) {
        const int nLast = bToEnd || (nEnd >= 0 && nEnd < nTo) ? nEnd : nTo - 1;
        return m_search.addMatches(nStart, nLast, pRanges, isAborted);
    };
    const CLinePattern &open = m_language.m_tagOpen;
    const CLinePattern &close = m_language.m_tagClose;
    if (open.isEmpty()) {
        return addUpTo(nFrom, -1);
    }
    int nStart = *pInsideTag ? nFrom : open.indexIn(m_strText, nFrom);
    int nEnd = close.indexIn(m_strText, nFrom);
    *pInsideTag = false;
    while (nStart >= 0 && (bToEnd || nStart < nTo)) {
        if (!addUpTo(nStart, nEnd)) {
            return false;
        }
        if (nEnd < 0 || (!bToEnd && nEnd >= nTo)) {
            *pInsideTag = true;
            return true;
        }
        // An opening that lies ahead is still the next one.
        if (nStart <= nEnd) {
            nStart = open.indexIn(m_strText, nEnd + 1);
        }
        nEnd = close.indexIn(m_strText, nEnd + 1);
    }
    return true;
}
