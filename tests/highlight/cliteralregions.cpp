#include "highlight/cliteralregions.h"

#include <algorithm>

namespace {

constexpr int nMaxDepth = 24;
constexpr int nMaxKey = 250;
constexpr int nMaxBehind = 64;
constexpr int nMaxInPlace = 50;

QString partner(const QString &strKey)
{
    static const QMap<QString, QString> s_map {{"(", ")"}, {"[", "]"}, {"{", "}"}, {"<", ">"}};
    return s_map.value(strKey, strKey);
}

int columnsOfBlanks(const QString &strLine)
{
    int nColumns = 0;
    for (const QChar ch : strLine) {
        if (!ch.isSpace()) {
            return nColumns;
        }
        nColumns = ch == '\t' ? (nColumns / 8 + 1) * 8 : nColumns + 1;
    }
    return -1;
}

bool endsWithOddBackslashes(const QString &strLine)
{
    int n = 0;
    while (n < strLine.size() && strLine.at(strLine.size() - 1 - n) == '\\') {
        ++n;
    }
    return n % 2 == 1;
}

} // namespace

CLiteralRegions::CLiteralRegions(const QVariantMap &mapDefinition)
{
    const QVariantMap mapEmbedded = mapDefinition.value("embedded").toMap();
    m_lstNames = QStringList {QString()} + mapEmbedded.keys();
    addLanguage(mapDefinition);
    for (const QVariant &embedded : mapEmbedded) {
        addLanguage(embedded.toMap());
    }
}

void CLiteralRegions::addLanguage(const QVariantMap &mapDefinition)
{
    Language language;
    const QVariantMap mapKeywords =
        mapDefinition.value("general").toMap().value("keywords").toMap();
    language.sensitivity =
        mapKeywords.value("casesensitive").toBool() ? Qt::CaseSensitive : Qt::CaseInsensitive;
    m_nElements = 0;
    language.pRegions = read(mapDefinition.value("regions").toMap(), int(m_lstLanguages.size()));
    collectNames(language.pRegions, &language);
    m_lstLanguages.push_back(language);
}

CLiteralRegions::ElementPtr CLiteralRegions::read(const QVariantMap &mapElement, int nLanguage)
{
    auto pElement = std::make_shared<Element>();
    pElement->strTag = mapElement.value("tag").toString().toLower();
    pElement->nLanguage = nLanguage;
    pElement->nNumber = m_nElements++;
    const QVariantMap mapAttributes = mapElement.value("attributes").toMap();
    for (auto it = mapAttributes.begin(); it != mapAttributes.end(); ++it) {
        pElement->mapAttributes.insert(it.key(), it.value().toString());
    }
    for (const QVariant &child : mapElement.value("children").toList()) {
        pElement->lstChildren.push_back(read(child.toMap(), nLanguage));
    }
    return pElement;
}

void CLiteralRegions::collectNames(const ElementPtr &pElement, Language *pLanguage)
{
    for (const ElementPtr &pChild : pElement->lstChildren) {
        if (pChild->strTag == "group") {
            pLanguage->mapGroups.insert(pChild->get("name"), pChild);
        } else if (pChild->strTag == "region" && pChild->has("name")) {
            pLanguage->mapNamed.insert(pChild->get("name"), pChild);
        }
        collectNames(pChild, pLanguage);
    }
}

// The end of the longest match at nAt, -1 when there is none.
int CLiteralRegions::endOf(int nLanguage, const QString &strPattern, int nAt)
{
    const auto sensitivity = m_lstLanguages[size_t(nLanguage)].sensitivity;
    const QString strName = QString::number(int(sensitivity)) + strPattern;
    if (!m_mapPatterns.contains(strName)) {
        m_mapPatterns.insert(strName, QRegExp(strPattern, sensitivity));
    }
    Match &match = m_mapMatches[strName];
    if (match.nFrom < 0 || nAt < match.nFrom || (match.nStart >= 0 && match.nStart < nAt)) {
        const QRegExp &rx = m_mapPatterns[strName];
        match.nFrom = nAt;
        match.nStart = strPattern.isEmpty() ? -1 : rx.indexIn(m_strLine, nAt);
        match.nLength = rx.matchedLength();
    }
    return match.nStart == nAt ? nAt + match.nLength : -1;
}

bool CLiteralRegions::standsBehind(int nLanguage, const Element &element, int nAt)
{
    if (!element.has("after")) {
        return true;
    }
    const QString strBefore = m_strLine.left(nAt);
    const QRegExp rx("(" + element.get("after") + ")$",
                     m_lstLanguages[size_t(nLanguage)].sensitivity);
    return rx.indexIn(strBefore, std::max(0, nAt - nMaxBehind)) >= 0;
}

int CLiteralRegions::endOfEnd(const Open &open, int nAt)
{
    QString strEnd = open.pElement->get("end");
    strEnd.replace("%2", QRegExp::escape(partner(open.strKey)));
    strEnd.replace("%1", QRegExp::escape(open.strKey));
    return strEnd.isEmpty() ? -1 : endOf(open.nLanguage, strEnd, nAt);
}

// '.' for code, which a blank end of nothing open is, too.
QChar CLiteralRegions::kind(const Open *pOpen) const
{
    const QString strAs = pOpen && pOpen->pElement ? pOpen->pElement->get("as") : QString();
    return strAs == "comment" ? 'c' : strAs == "string" ? 's' : '.';
}

bool CLiteralRegions::isFirm(size_t n) const
{
    const Open &open = m_lstOpen[n];
    return open.pElement && !open.bWaits && open.pElement->has("end")
        && (open.pElement->is("firm") || open.pElement->is("nextline")
            || m_lstNames.indexOf(open.pElement->get("language"), 1) >= 1);
}

void CLiteralRegions::paint(int nFrom, int nTo, QChar ch)
{
    for (int n = nFrom; n < nTo; ++n) {
        m_strKinds[n] = ch;
    }
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
            && nBlanks <= m_lstOpen[n].strKey.toInt()) {
            m_lstOpen.resize(n);
        }
    }
    int nInPlace = 0;
    for (m_nAt = 0; m_nAt <= strLine.size();) {
        const int nBefore = m_nAt;
        if (nInPlace < nMaxInPlace && tryPlace(nBefore)) {
            nInPlace = m_nAt == nBefore ? nInPlace + 1 : 0;
            continue;
        }
        nInPlace = 0;
        if (nBefore < strLine.size()) {
            paint(nBefore, nBefore + 1, kind(m_lstOpen.empty() ? nullptr : &m_lstOpen.back()));
        }
        m_nAt = nBefore + 1;
    }
    endLine();
    return m_strKinds;
}

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
    for (const Open &open : m_lstOpen) {
        if (open.nLanguage == 0) {
            return false;
        }
    }
    std::vector<ElementPtr> lst = m_lstLanguages[0].pRegions->lstChildren;
    for (size_t n = 0; n < lst.size(); ++n) {
        const ElementPtr pElement = lst[n];
        if (pElement->strTag == "region" && pElement->is("anywhere")
            && beginRegion(pElement, 0, nAt)) {
            return true;
        }
        lst.insert(lst.end(), pElement->lstChildren.begin(), pElement->lstChildren.end());
    }
    return false;
}

std::vector<CLiteralRegions::ElementPtr> CLiteralRegions::rulesInside(int nLanguage,
                                                                      const ElementPtr &pElement)
{
    const Language &language = m_lstLanguages[size_t(nLanguage)];
    if (!pElement) {
        return language.pRegions->lstChildren;
    }
    std::vector<ElementPtr> lst = pElement->lstChildren;
    for (const QString &strName : pElement->get("inner").split(' ', Qt::SkipEmptyParts)) {
        const ElementPtr pGroup =
            strName == "top" ? language.pRegions : language.mapGroups.value(strName);
        if (pGroup) {
            lst.insert(lst.end(), pGroup->lstChildren.begin(), pGroup->lstChildren.end());
        }
    }
    return lst;
}

bool CLiteralRegions::tryInnermost(int nAt)
{
    const QString strBase = m_lstLanguages[0].pRegions->get("language");
    const int nBase = std::max(0, m_lstNames.indexOf(strBase, 1));
    const Open open = m_lstOpen.empty() ? Open {nullptr, nBase, QString()} : m_lstOpen.back();
    if (open.pElement) {
        const Element &element = *open.pElement;
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
            Open again = open;
            again.bWaits = false;
            enter(again, nAt, nNested);
            return true;
        }
    }
    for (const ElementPtr &pRule : rulesInside(open.nLanguage, open.pElement)) {
        if (tryElement(pRule, open.nLanguage, nAt)) {
            return true;
        }
    }
    return false;
}

bool CLiteralRegions::tryElement(const ElementPtr &pElement, int nLanguage, int nAt)
{
    if (pElement->strTag == "region") {
        return beginRegion(pElement, nLanguage, nAt);
    }
    if (pElement->strTag != "token" || !standsBehind(nLanguage, *pElement, nAt)) {
        return false;
    }
    const int nBehind = endOf(nLanguage, pElement->get("pattern"), nAt);
    if (nBehind <= nAt) {
        return false;
    }
    const Open token {pElement, nLanguage, QString()};
    paint(nAt, nBehind,
          kind(pElement->has("as")     ? &token
                   : m_lstOpen.empty() ? nullptr
                                       : &m_lstOpen.back()));
    m_nAt = nBehind;
    return true;
}

bool CLiteralRegions::beginRegion(const ElementPtr &pElement, int nLanguage, int nAt)
{
    const Element &element = *pElement;
    if ((!element.has("start") && !element.has("key")) || !standsBehind(nLanguage, element, nAt)) {
        return false;
    }
    Open open {pElement, nLanguage, QString()};
    int n = element.has("start") ? endOf(nLanguage, element.get("start"), nAt) : nAt;
    if (n >= 0 && element.has("key")) {
        const int nKey = n;
        n = endOf(nLanguage, element.get("key"), nKey);
        open.strKey = n < 0 ? QString() : m_strLine.mid(nKey, n - nKey);
    }
    if (n >= 0 && element.has("then")) {
        n = endOf(nLanguage, element.get("then"), n);
    }
    if (n <= nAt || m_lstOpen.size() + m_lstPending.size() >= nMaxDepth
        || open.strKey.size() > nMaxKey) {
        return false;
    }
    if (element.get("lines") == "indented") {
        open.strKey = QString::number(std::max(0, columnsOfBlanks(m_strLine)));
    }
    if (element.is("nextline")) {
        paint(nAt, n, kind(m_lstOpen.empty() ? nullptr : &m_lstOpen.back()));
        m_lstPending.push_back(open);
        m_nAt = n;
        return true;
    }
    enter(open, nAt, n);
    return true;
}

void CLiteralRegions::enter(const Open &open, int nAt, int nBehind)
{
    paint(nAt, nBehind, kind(&open));
    m_lstOpen.push_back(open);
    m_nAt = nBehind;
    const int nEmbedded = m_lstNames.indexOf(open.pElement->get("language"), 1);
    if (nEmbedded >= 1 && m_lstOpen.size() < nMaxDepth) {
        m_lstOpen.push_back({nullptr, nEmbedded, QString()});
    }
}

// With all that it holds. What waits below goes on waiting, and the uppermost no more.
void CLiteralRegions::leave(size_t nDepth, int nAt, int nBehind)
{
    const Open open = m_lstOpen[nDepth];
    const Element &element = *open.pElement;
    std::vector<Open> lstWaiting;
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
    if (!m_lstOpen.empty()) {
        m_lstOpen.back().bWaits = false;
    }
    m_nAt = nBehind;
    const Language &language = m_lstLanguages[size_t(open.nLanguage)];
    if (element.is("twice") && !open.bSecondHalf) {
        Open second {open.pElement, open.nLanguage, open.strKey, true};
        if (partner(open.strKey) != open.strKey) {
            int n = m_nAt;
            while (n < m_strLine.size() && m_strLine.at(n).isSpace()) {
                ++n;
            }
            if (n == m_strLine.size() || m_strLine.at(n).isLetterOrNumber()) {
                return;
            }
            second.strKey = m_strLine.mid(n, 1);
            enter(second, m_nAt, n + 1);
        } else {
            enter(second, m_nAt, m_nAt);
        }
    } else if (const ElementPtr pNext = language.mapNamed.value(element.get("next"))) {
        enter({pNext, open.nLanguage, QString()}, m_nAt, m_nAt);
    }
}

bool CLiteralRegions::endsWithLine(const Element &element) const
{
    const QString strLines = element.get("lines");
    if (strLines == "one" || strLines == "backslash") {
        return strLines == "one" || !endsWithOddBackslashes(m_strLine);
    }
    if (strLines == "many" || strLines == "indented") {
        return false;
    }
    const QString strAs = element.get("as");
    return !element.has("end")
        || ((strAs == "comment" || strAs == "string") && !element.is("nextline"));
}

void CLiteralRegions::endLine()
{
    for (size_t n = 0; n < m_lstOpen.size(); ++n) {
        if (m_lstOpen[n].pElement && endsWithLine(*m_lstOpen[n].pElement)) {
            m_lstOpen.resize(n);
        }
    }
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
    for (const Open &open : m_lstOpen) {
        lst << QString("%1/%2/%3/%4%5")
                   .arg(open.nLanguage)
                   .arg(open.pElement ? open.pElement->nNumber : -1)
                   .arg(open.strKey)
                   .arg(int(open.bSecondHalf))
                   .arg(int(open.bWaits));
    }
    return lst.join('\n');
}
