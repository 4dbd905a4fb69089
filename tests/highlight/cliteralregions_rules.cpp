// Finds the rule that matches at a place: first ends of outer regions, then rules that begin
// anywhere, then those of the innermost region.
#include "highlight/cliteralregions.h"

#include <algorithm>

bool CLiteralRegions::tryPlace(int nAt)
{
    return tryEndsFurtherOut(nAt) || tryAnywhere(nAt) || tryInnermost(nAt);
}

bool CLiteralRegions::tryEndsFurtherOut(int nAt)
{
    for (size_t n = 0; n + 1 < m_lstOpen.size(); ++n) {
        const int nBehind = isFirm(n) ? endOfEnd(m_lstOpen[n], nAt) : -1;
        if (nBehind >= 0) {
            leave(n, nAt, nBehind);
            return true;
        }
    }
    return false;
}

// In the language around and what it holds, as long as nothing of this one is open.
bool CLiteralRegions::tryAnywhere(int nAt)
{
    for (const SOpen &open : m_lstOpen)
        if (open.nLanguage == 0)
            return false;
    std::vector<ElementPtr> lst = m_lstLanguages[0].pRegions->lstChildren;
    for (size_t n = 0; n < lst.size(); ++n) {
        const ElementPtr pElement = lst[n];
        if (pElement->strTag == "region" && pElement->is("anywhere")
            && beginRegion(pElement, 0, nAt))
            return true;
        lst.insert(lst.end(), pElement->lstChildren.begin(), pElement->lstChildren.end());
    }
    return false;
}

std::vector<CLiteralRegions::ElementPtr> CLiteralRegions::rulesInside(int nLanguage,
                                                                      const ElementPtr &pElement)
{
    const SLanguage &language = m_lstLanguages[size_t(nLanguage)];
    if (!pElement)
        return language.pRegions->lstChildren;
    std::vector<ElementPtr> lst = pElement->lstChildren;
    for (const QString &strName : pElement->get("inner").split(' ', Qt::SkipEmptyParts)) {
        const ElementPtr pGroup =
            strName == "top" ? language.pRegions : language.mapGroups.value(strName);
        if (pGroup)
            lst.insert(lst.end(), pGroup->lstChildren.begin(), pGroup->lstChildren.end());
    }
    return lst;
}

bool CLiteralRegions::tryInnermost(int nAt)
{
    const QString strBase = m_lstLanguages[0].pRegions->get("language");
    const int nBase = std::max(0, m_lstNames.indexOf(strBase, 1));
    const SOpen open = m_lstOpen.empty() ? SOpen {nullptr, nBase, QString()} : m_lstOpen.back();
    if (open.pElement) {
        const SElement &element = *open.pElement;
        const int nSkip = endOf(open.nLanguage, element.get("skip"), nAt);
        if (nSkip > nAt) {
            paint(nAt, nSkip, kind(&open));
            m_nAt = nSkip;
            return true;
        }
        const int nBehind = endOfEnd(open, nAt);
        if (nBehind >= 0) {
            leave(m_lstOpen.size() - 1, nAt, nBehind);
            return true;
        }
        const bool bByKey = element.get("end").contains("%2");
        const bool bPair = bByKey && partner(open.strKey) != open.strKey
            && m_strLine.midRef(nAt, 1) == open.strKey;
        const int nNested =
            bByKey ? (bPair ? nAt + 1 : -1) : endOf(open.nLanguage, element.get("nests"), nAt);
        if (nNested > nAt && m_lstOpen.size() + m_lstPending.size() < nMaxDepth) {
            SOpen again = open;
            again.bWaits = false;
            enter(again, nAt, nNested);
            return true;
        }
    }
    for (const ElementPtr &pRule : rulesInside(open.nLanguage, open.pElement))
        if (tryElement(pRule, open.nLanguage, nAt))
            return true;
    return false;
}

bool CLiteralRegions::tryElement(const ElementPtr &pElement, int nLanguage, int nAt)
{
    if (pElement->strTag == "region")
        return beginRegion(pElement, nLanguage, nAt);
    if (pElement->strTag != "token" || !standsBehind(nLanguage, *pElement, nAt))
        return false;
    const int nBehind = endOf(nLanguage, pElement->get("pattern"), nAt);
    if (nBehind <= nAt)
        return false;
    const SOpen token {pElement, nLanguage, QString()};
    paint(nAt, nBehind,
          kind(pElement->has("as")     ? &token
                   : m_lstOpen.empty() ? nullptr
                                       : &m_lstOpen.back()));
    m_nAt = nBehind;
    return true;
}
