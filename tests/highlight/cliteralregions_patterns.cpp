// Matches the patterns of the elements.
#include "highlight/cliteralregions.h"

#include <algorithm>

namespace {

constexpr int g_nMaxBehind = 64;

} // namespace

QString CLiteralRegions::partner(const QString &strKey)
{
    static const QMap<QString, QString> s_map {{"(", ")"}, {"[", "]"}, {"{", "}"}, {"<", ">"}};
    return s_map.value(strKey, strKey);
}

// The end of the longest match at nAt, -1 when there is none.
int CLiteralRegions::endOf(int nLanguage, const QString &strPattern, int nAt)
{
    const auto sensitivity = m_lstLanguages[size_t(nLanguage)].sensitivity;
    const QString strName = QString::number(int(sensitivity)) + strPattern;
    if (!m_mapPatterns.contains(strName))
        m_mapPatterns.insert(strName, QRegExp(strPattern, sensitivity));
    SMatch &match = m_mapMatches[strName];
    if (match.nFrom < 0 || nAt < match.nFrom || (match.nStart >= 0 && match.nStart < nAt)) {
        const QRegExp &rx = m_mapPatterns[strName];
        match.nFrom = nAt;
        match.nStart = strPattern.isEmpty() ? -1 : rx.indexIn(m_strLine, nAt);
        match.nLength = rx.matchedLength();
    }
    return match.nStart == nAt ? nAt + match.nLength : -1;
}

bool CLiteralRegions::standsBehind(int nLanguage, const SElement &element, int nAt)
{
    if (!element.has("after"))
        return true;
    const QString strBefore = m_strLine.left(nAt);
    const QRegExp rx("(" + element.get("after") + ")$",
                     m_lstLanguages[size_t(nLanguage)].sensitivity);
    return rx.indexIn(strBefore, std::max(0, nAt - g_nMaxBehind)) >= 0;
}

int CLiteralRegions::endOfEnd(const SOpen &open, int nAt)
{
    QString strEnd = open.pElement->get("end");
    strEnd.replace("%2", QRegExp::escape(partner(open.strKey)));
    strEnd.replace("%1", QRegExp::escape(open.strKey));
    return strEnd.isEmpty() ? -1 : endOf(open.nLanguage, strEnd, nAt);
}
