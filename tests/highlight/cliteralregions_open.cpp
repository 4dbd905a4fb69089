// How a region begins and ends.
#include "highlight/cliteralregions.h"

#include <algorithm>

namespace {

constexpr int g_nMaxKey = 250;

} // namespace

bool CLiteralRegions::beginRegion(const ElementPtr &pElement, int nLanguage, int nAt)
{
    const SElement &element = *pElement;
    if ((!element.has("start") && !element.has("key")) || !standsBehind(nLanguage, element, nAt))
        return false;
    SOpen open {pElement, nLanguage, QString()};
    int n = element.has("start") ? endOf(nLanguage, element.get("start"), nAt) : nAt;
    if (n >= 0 && element.has("key")) {
        const int nKey = n;
        n = endOf(nLanguage, element.get("key"), nKey);
        open.strKey = n < 0 ? QString() : m_strLine.mid(nKey, n - nKey);
    }
    if (n >= 0 && element.has("then"))
        n = endOf(nLanguage, element.get("then"), n);
    if (n <= nAt || m_lstOpen.size() + m_lstPending.size() >= nMaxDepth
        || open.strKey.size() > g_nMaxKey)
        return false;
    if (element.get("lines") == "indented")
        open.strKey = QString::number(std::max(0, columnsOfBlanks(m_strLine)));
    if (element.is("nextline")) {
        paint(nAt, n, kind(m_lstOpen.empty() ? nullptr : &m_lstOpen.back()));
        m_lstPending.push_back(open);
        m_nAt = n;
        return true;
    }
    enter(open, nAt, n);
    return true;
}

void CLiteralRegions::enter(const SOpen &open, int nAt, int nBehind)
{
    paint(nAt, nBehind, kind(&open));
    m_lstOpen.push_back(open);
    m_nAt = nBehind;
    const int nEmbedded = m_lstNames.indexOf(open.pElement->get("language"), 1);
    if (nEmbedded >= 1 && m_lstOpen.size() < nMaxDepth)
        m_lstOpen.push_back({nullptr, nEmbedded, QString()});
}

// Ends a region with all that it holds. Of those that wait below, the uppermost stops waiting.
void CLiteralRegions::leave(size_t nDepth, int nAt, int nBehind)
{
    const SOpen open = m_lstOpen[nDepth];
    const SElement &element = *open.pElement;
    std::vector<SOpen> lstWaiting;
    m_lstOpen.resize(nDepth);
    if (element.is("nextline")) {
        while (!m_lstOpen.empty() && m_lstOpen.back().bWaits) {
            lstWaiting.insert(lstWaiting.begin(), m_lstOpen.back());
            m_lstOpen.pop_back();
        }
        paint(nAt, nBehind, kind(m_lstOpen.empty() ? nullptr : &m_lstOpen.back()));
        m_lstOpen.insert(m_lstOpen.end(), lstWaiting.begin(), lstWaiting.end());
    } else {
        paint(nAt, nBehind, kind(&open));
    }
    if (!m_lstOpen.empty())
        m_lstOpen.back().bWaits = false;
    m_nAt = nBehind;
    const SLanguage &language = m_lstLanguages[size_t(open.nLanguage)];
    if (element.is("twice") && !open.bSecondHalf) {
        SOpen second {open.pElement, open.nLanguage, open.strKey, true};
        if (partner(open.strKey) != open.strKey) {
            int n = m_nAt;
            while (n < m_strLine.size() && m_strLine.at(n).isSpace())
                ++n;
            if (n == m_strLine.size() || m_strLine.at(n).isLetterOrNumber())
                return;
            second.strKey = m_strLine.mid(n, 1);
            enter(second, m_nAt, n + 1);
        } else {
            enter(second, m_nAt, m_nAt);
        }
    } else if (const ElementPtr pNext = language.mapNamed.value(element.get("next"))) {
        enter({pNext, open.nLanguage, QString()}, m_nAt, m_nAt);
    }
}
