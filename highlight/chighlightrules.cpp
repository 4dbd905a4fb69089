#include "highlight/chighlightrules.h"

#include "highlight/fixedrules.h"

#include <QBrush>
#include <QColor>

CHighlightRules::CHighlightRules() : m_strSingleLine(QStringLiteral("//"))
{
    m_comments.setSingleLine(m_strSingleLine);
}

CHighlightRules::CHighlightRules(const QVariantMap &mapDefinition)
{
    const QVariantMap mapLanguage = mapDefinition.value(QStringLiteral("language")).toMap();
    const QVariantMap mapGeneral = mapDefinition.value(QStringLiteral("general")).toMap();
    const QVariantMap mapHighlighting = mapDefinition.value(QStringLiteral("highlighting")).toMap();
    const QVariantMap mapKeywords = mapGeneral.value(QStringLiteral("keywords")).toMap();
    m_strLanguage = mapLanguage.value(QStringLiteral("name")).toString();
    const bool bSensitive = mapKeywords.value(QStringLiteral("casesensitive")).toBool();
    m_keywords = CKeywordMatcher(bSensitive ? Qt::CaseSensitive : Qt::CaseInsensitive);
    readComments(mapGeneral.value(QStringLiteral("comments")).toList());
    readContexts(mapHighlighting.value(QStringLiteral("contexts")).toList());
    readKeywords(mapHighlighting);
}

void CHighlightRules::readComments(const QVariantList &lstComments)
{
    // Of a pattern only the stars are escaped; the rest is syntax.
    const auto escaped = [](QString str) {
        return str.replace(QLatin1Char('*'), QLatin1String("\\*"));
    };
    for (const QVariant &comment : lstComments) {
        const QVariantMap mapComment = comment.toMap();
        const QString strName = mapComment.value(QStringLiteral("name")).toString().toLower();
        const QString strStart = mapComment.value(QStringLiteral("start")).toString();
        const QString strEnd = mapComment.value(QStringLiteral("end")).toString();
        if (strStart.isEmpty()) {
            continue;
        }
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

void CHighlightRules::readContexts(const QVariantList &lstContexts)
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

void CHighlightRules::readKeywords(const QVariantMap &mapHighlighting)
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

bool CHighlightRules::highlight(const QString &strText, int nPreviousState, HighlightLine *pLine,
                                const AbortCheck &isAborted) const
{
    pLine->lstRanges.clear();
    pLine->nState = 0;
    if (isAborted && isAborted()) {
        return false;
    }
    if (strText.isEmpty()) {
        pLine->nState = qMax(0, nPreviousState);
        return true;
    }
    addNumbers(strText, &pLine->lstRanges);
    addOperators(strText, &pLine->lstRanges);
    if (!addKeywords(strText, nPreviousState, pLine, isAborted)) {
        return false;
    }
    m_comments.scan(strText, nPreviousState, pLine);
    return true;
}

bool CHighlightRules::addKeywords(const QString &strText, int nPreviousState, HighlightLine *pLine,
                                  const AbortCheck &isAborted) const
{
    CKeywordMatcher::CSearch search(m_keywords, strText);
    if (m_tagOpen.isEmpty()) {
        return search.addMatches(0, -1, &pLine->lstRanges, isAborted);
    }
    const bool bInside = nPreviousState > 0 && (nPreviousState & HighlightState::InsideTag);
    int nStart = bInside ? 0 : m_tagOpen.indexIn(strText, 0);
    int nEnd = m_tagClose.indexIn(strText, 0);
    while (nStart >= 0) {
        if (!search.addMatches(nStart, nEnd, &pLine->lstRanges, isAborted)) {
            return false;
        }
        if (nEnd < 0) {
            pLine->nState |= HighlightState::InsideTag;
            return true;
        }
        // An opening that lies ahead is still the next one.
        if (nStart <= nEnd) {
            nStart = m_tagOpen.indexIn(strText, nEnd + 1);
        }
        nEnd = m_tagClose.indexIn(strText, nEnd + 1);
    }
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
