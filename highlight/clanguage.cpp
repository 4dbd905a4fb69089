#include "highlight/clanguage.h"

#include "highlight/csymbolline.h"

#include <algorithm>
#include <utility>

CLanguage::CLanguage(const QVariantMap &mapDefinition, const QStringList &lstLanguages)
{
    const QVariantMap mapGeneral = mapDefinition.value(QStringLiteral("general")).toMap();
    const QVariantMap mapHighlighting = mapDefinition.value(QStringLiteral("highlighting")).toMap();
    const QVariantMap mapKeywords = mapGeneral.value(QStringLiteral("keywords")).toMap();
    const QVariantMap mapRegions = mapDefinition.value(QStringLiteral("regions")).toMap();
    const bool bSensitive = mapKeywords.value(QStringLiteral("casesensitive")).toBool();
    const Qt::CaseSensitivity sensitivity = bSensitive ? Qt::CaseSensitive : Qt::CaseInsensitive;
    m_code = CCodeMatcher(sensitivity);
    readContexts(mapHighlighting.value(QStringLiteral("contexts")).toList());
    readKeywords(mapHighlighting);
    m_regions = CRegionRules(mapRegions, lstLanguages, sensitivity);
    readFixedRules(mapRegions.value(QStringLiteral("children")).toList());
}

// Only the first element of each kind counts.
void CLanguage::readFixedRules(const QVariantList &lstElements)
{
    bool bNumbers = false;
    bool bOperators = false;
    for (const QVariant &element : lstElements) {
        const QVariantMap mapElement = element.toMap();
        const QString strTag = mapElement.value(QStringLiteral("tag")).toString().toLower();
        const QString strPattern = mapElement.value(QStringLiteral("attributes"))
                                       .toMap()
                                       .value(QStringLiteral("pattern"))
                                       .toString();
        if (strTag == QLatin1String("numbers") && !std::exchange(bNumbers, true))
            m_code.setNumbers(strPattern);
        else if (strTag == QLatin1String("operators") && !std::exchange(bOperators, true))
            m_code.setOperators(strPattern);
    }
}

void CLanguage::readContexts(const QVariantList &lstContexts)
{
    for (const QVariant &context : lstContexts) {
        const QVariantMap mapContext = context.toMap();
        const QString strName = mapContext.value(QStringLiteral("name")).toString();
        const bool bOpen = strName == QLatin1String("El Open");
        if (!bOpen && strName != QLatin1String("El Close"))
            continue;
        const QVariantList lstChildren = mapContext.value(QStringLiteral("children")).toList();
        for (const QVariant &child : lstChildren) {
            const QVariantMap mapChild = child.toMap();
            if (mapChild.value(QStringLiteral("tag")).toString() == QLatin1String("DetectChar")) {
                const CLinePattern pattern(mapChild.value(QStringLiteral("char")).toString());
                (bOpen ? m_tagOpen : m_tagClose) = pattern;
            }
        }
    }
    if (m_tagOpen.isEmpty() || m_tagClose.isEmpty())
        m_tagOpen = m_tagClose = CLinePattern();
}

void CLanguage::readKeywords(const QVariantMap &mapHighlighting)
{
    for (auto it = mapHighlighting.begin(); it != mapHighlighting.end(); ++it) {
        const bool bPatterns = it.key() == QLatin1String("reg_exp");
        const QStringList lstItems = it.value().toStringList();
        for (const QString &strRaw : lstItems) {
            const QString strItem = strRaw.trimmed();
            if (strItem.isEmpty())
                continue;
            if (bPatterns)
                m_code.addPattern(strItem);
            else
                m_code.addWord(strItem);
        }
    }
}

void CLanguage::setLine(const CSymbolLine *pLine) const
{
    m_pLine = pLine;
    m_open = m_close = SNextTag();
    m_code.setLine(pLine);
}

bool CLanguage::add(int nFrom, int nTo, bool *pInsideTag, std::vector<SHighlightRange> *pRanges,
                    const AbortCheck &isAborted) const
{
    m_code.begin(nFrom, nTo);
    const bool bDone = m_tagOpen.isEmpty() ? m_code.lookThrough(nFrom, nTo, true, isAborted)
                                           : lookThroughTags(nFrom, nTo, pInsideTag, isAborted);
    return bDone && m_code.finish(pRanges, isAborted);
}

bool CLanguage::lookThroughTags(int nFrom, int nTo, bool *pInsideTag,
                                const AbortCheck &isAborted) const
{
    // A pattern may match nothing at the line's end.
    const bool bToEnd = nTo == m_pLine->size();
    int nAt = nFrom;
    int nStart = *pInsideTag ? nFrom : m_open.from(nFrom, m_tagOpen, *m_pLine);
    *pInsideTag = false;
    while (nStart >= 0 && (bToEnd || nStart < nTo)) {
        const int nEnd = m_close.from(nStart, m_tagClose, *m_pLine);
        const bool bOpen = nEnd < 0 || (!bToEnd && nEnd >= nTo);
        const int nBehind = bOpen ? nTo : std::min(nTo, nEnd + 1);
        if (!m_code.lookThrough(nAt, nStart, false, isAborted)
            || !m_code.lookThrough(nStart, nBehind, true, isAborted))
            return false;
        nAt = nBehind;
        if (bOpen) {
            *pInsideTag = true;
            return true;
        }
        nStart = m_open.from(nEnd + 1, m_tagOpen, *m_pLine);
    }
    return m_code.lookThrough(nAt, nTo, false, isAborted);
}

int CLanguage::SNextTag::from(int n, const CLinePattern &pattern, const CSymbolLine &line)
{
    if (nFrom < 0 || n < nFrom || (nAt >= 0 && n > nAt)) {
        nFrom = n;
        nAt = pattern.indexIn(line, n);
    }
    return nAt;
}
