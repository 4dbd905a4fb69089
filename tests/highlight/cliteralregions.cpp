#include "highlight/cliteralregions.h"

namespace {

constexpr int g_nMaxInPlace = 50;

bool endsWithOddBackslashes(const QString &strLine)
{
    int n = 0;
    while (n < strLine.size() && strLine.at(strLine.size() - 1 - n) == '\\')
        ++n;
    return n % 2 == 1;
}

} // namespace

int CLiteralRegions::columnsOfBlanks(const QString &strLine)
{
    int nColumns = 0;
    for (const QChar ch : strLine) {
        if (!ch.isSpace())
            return nColumns;
        nColumns = ch == '\t' ? (nColumns / 8 + 1) * 8 : nColumns + 1;
    }
    return -1;
}

// '.' for code, which includes the end of a line with nothing open.
QChar CLiteralRegions::kind(const SOpen *pOpen) const
{
    const QString strAs = pOpen && pOpen->pElement ? pOpen->pElement->get("as") : QString();
    return strAs == "comment" ? 'c' : strAs == "string" ? 's' : '.';
}

bool CLiteralRegions::isFirm(size_t n) const
{
    const SOpen &open = m_lstOpen[n];
    return open.pElement && !open.bWaits && open.pElement->has("end")
        && (open.pElement->is("firm") || open.pElement->is("nextline")
            || m_lstNames.indexOf(open.pElement->get("language"), 1) >= 1);
}

void CLiteralRegions::paint(int nFrom, int nTo, QChar ch)
{
    for (int n = nFrom; n < nTo; ++n)
        m_strKinds[n] = ch;
}

QString CLiteralRegions::divide(const QString &strLine)
{
    m_strLine = strLine;
    m_strKinds = QString(strLine.size(), '.');
    m_mapMatches.clear();
    const int nBlanks = columnsOfBlanks(strLine);
    for (size_t n = 0; n < m_lstOpen.size(); ++n) {
        const ElementPtr &pElement = m_lstOpen[n].pElement;
        if (pElement && pElement->get("lines") == "indented" && nBlanks >= 0
            && nBlanks <= m_lstOpen[n].strKey.toInt())
            m_lstOpen.resize(n);
    }
    int nInPlace = 0;
    for (m_nAt = 0; m_nAt <= strLine.size();) {
        const int nBefore = m_nAt;
        if (nInPlace < g_nMaxInPlace && tryPlace(nBefore)) {
            nInPlace = m_nAt == nBefore ? nInPlace + 1 : 0;
            continue;
        }
        nInPlace = 0;
        if (nBefore < strLine.size())
            paint(nBefore, nBefore + 1, kind(m_lstOpen.empty() ? nullptr : &m_lstOpen.back()));
        m_nAt = nBefore + 1;
    }
    endLine();
    return m_strKinds;
}

bool CLiteralRegions::endsWithLine(const SElement &element) const
{
    const QString strLines = element.get("lines");
    if (strLines == "one" || strLines == "backslash")
        return strLines == "one" || !endsWithOddBackslashes(m_strLine);
    if (strLines == "many" || strLines == "indented")
        return false;
    const QString strAs = element.get("as");
    return !element.has("end")
        || ((strAs == "comment" || strAs == "string") && !element.is("nextline"));
}

void CLiteralRegions::endLine()
{
    for (size_t n = 0; n < m_lstOpen.size(); ++n)
        if (m_lstOpen[n].pElement && endsWithLine(*m_lstOpen[n].pElement))
            m_lstOpen.resize(n);
    // The first to begin is the innermost.
    for (size_t n = m_lstPending.size(); n > 0; --n) {
        m_lstOpen.push_back(m_lstPending[n - 1]);
        m_lstOpen.back().bWaits = n > 1;
    }
    m_lstPending.clear();
}

QString CLiteralRegions::state() const
{
    QStringList lst;
    for (const SOpen &open : m_lstOpen) {
        lst << QString("%1/%2/%3/%4%5")
                   .arg(open.nLanguage)
                   .arg(open.pElement ? open.pElement->nNumber : -1)
                   .arg(open.strKey)
                   .arg(int(open.bSecondHalf))
                   .arg(int(open.bWaits));
    }
    return lst.join('\n');
}
