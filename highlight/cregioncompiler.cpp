#include "highlight/cregioncompiler.h"

#include "highlight/canchoredpattern.h"

namespace {

QString attribute(const QVariantMap &mapElement, const char *pszName)
{
    return mapElement.value(QStringLiteral("attributes"))
        .toMap()
        .value(QLatin1String(pszName))
        .toString();
}

bool hasAttribute(const QVariantMap &mapElement, const char *pszName)
{
    return mapElement.value(QStringLiteral("attributes")).toMap().contains(QLatin1String(pszName));
}

bool isTrue(const QVariantMap &mapElement, const char *pszName)
{
    return attribute(mapElement, pszName) == QLatin1String("true");
}

RegionRole roleOf(const QVariantMap &mapElement)
{
    const QString strAs = attribute(mapElement, "as");
    return strAs == QLatin1String("comment") ? RegionRole::Comment
        : strAs == QLatin1String("string")   ? RegionRole::String
        : strAs == QLatin1String("plain")    ? RegionRole::Plain
                                             : RegionRole::Code;
}

SRegionContext::Lines linesOf(const QVariantMap &mapElement, RegionRole role)
{
    const QString strLines = attribute(mapElement, "lines");
    const bool bText = role == RegionRole::Comment || role == RegionRole::String;
    return strLines == QLatin1String("one")        ? SRegionContext::One
        : strLines == QLatin1String("many")        ? SRegionContext::Many
        : strLines == QLatin1String("backslash")   ? SRegionContext::Backslash
        : strLines == QLatin1String("indented")    ? SRegionContext::Indented
        : bText && !isTrue(mapElement, "nextline") ? SRegionContext::One
                                                   : SRegionContext::Many;
}

} // namespace

CRegionCompiler::CRegionCompiler(QStringList lstLanguages, Qt::CaseSensitivity sensitivity)
    : m_lstLanguages(std::move(lstLanguages)), m_sensitivity(sensitivity)
{
}

void CRegionCompiler::compile(const QVariantMap &mapRegions)
{
    m_lstContexts.emplace_back();
    const std::vector<int> lstTop = compileChildren(mapRegions);
    m_mapGroups.insert(QStringLiteral("top"), lstTop);
    m_lstContexts[0].lstRules = lstTop;
    resolve();
}

CAnchoredPattern CRegionCompiler::pattern(const QString &str) const
{
    return CAnchoredPattern(str, m_sensitivity);
}

int CRegionCompiler::addRule(const SRegionRule &rule)
{
    m_lstRules.push_back(rule);
    return int(m_lstRules.size()) - 1;
}

// Adds the rules of the tokens and regions in the element; a group is only noted.
std::vector<int> CRegionCompiler::compileChildren(const QVariantMap &mapElement)
{
    std::vector<int> lstRules;
    const QVariantList lstChildren = mapElement.value(QStringLiteral("children")).toList();
    for (const QVariant &child : lstChildren) {
        const QVariantMap mapChild = child.toMap();
        const QString strTag = mapChild.value(QStringLiteral("tag")).toString().toLower();
        if (strTag == QLatin1String("group")) {
            m_mapGroups.insert(attribute(mapChild, "name"), compileChildren(mapChild));
        } else if (strTag == QLatin1String("token")) {
            lstRules.push_back(compileToken(mapChild));
        } else if (strTag == QLatin1String("region")) {
            const int nRule = compileRegion(mapChild);
            if (nRule >= 0)
                lstRules.push_back(nRule);
        }
    }
    return lstRules;
}

int CRegionCompiler::compileToken(const QVariantMap &mapElement)
{
    SRegionRule rule;
    rule.bHasRole = hasAttribute(mapElement, "as");
    rule.role = roleOf(mapElement);
    rule.start = pattern(attribute(mapElement, "pattern"));
    rule.bHasStart = true;
    rule.after = CAnchoredPattern(attribute(mapElement, "after"), m_sensitivity,
                                  CAnchoredPattern::Backwards);
    rule.bHasAfter = hasAttribute(mapElement, "after");
    return addRule(rule);
}

// The rule that begins it; -1 for a region that only follows another.
int CRegionCompiler::compileRegion(const QVariantMap &mapElement)
{
    const int nContext = compileContext(mapElement);
    if (isTrue(mapElement, "twice")) {
        const int nSecond = compileContext(mapElement);
        m_lstContexts[size_t(nContext)].nSecond = nSecond;
    }
    if (hasAttribute(mapElement, "name"))
        m_mapNamed.insert(attribute(mapElement, "name"), nContext);
    if (!hasAttribute(mapElement, "start") && !hasAttribute(mapElement, "key"))
        return -1;
    const int nRule = addBegin(mapElement, nContext);
    if (isTrue(mapElement, "anywhere"))
        m_lstAnywhere.push_back(nRule);
    return nRule;
}

int CRegionCompiler::compileContext(const QVariantMap &mapElement)
{
    const auto nContext = int(m_lstContexts.size());
    m_lstContexts.emplace_back();
    SRegionContext context;
    context.role = roleOf(mapElement);
    context.lines = linesOf(mapElement, context.role);
    context.bFromNextLine = isTrue(mapElement, "nextline");
    context.nEmbedded = m_lstLanguages.indexOf(attribute(mapElement, "language"), 1);
    context.bFirm = context.bFromNextLine || context.nEmbedded >= 0 || isTrue(mapElement, "firm");
    const QString strEnd = attribute(mapElement, "end");
    const QString strSkip = attribute(mapElement, "skip");
    if (!strSkip.isEmpty()) {
        SRegionRule skip;
        skip.start = pattern(strSkip);
        skip.bHasStart = true;
        context.lstRules.push_back(addRule(skip));
    }
    if (!strEnd.isEmpty()) {
        context.nEnd = addEnd(strEnd);
        context.lstRules.push_back(context.nEnd);
    } else if (!hasAttribute(mapElement, "lines")) {
        context.lines = SRegionContext::One;
    }
    const bool bNestsByKey = strEnd.contains(QLatin1String("%2"));
    if (bNestsByKey || hasAttribute(mapElement, "nests")) {
        SRegionRule nest;
        nest.kind = SRegionRule::Nest;
        nest.nContext = nContext;
        nest.bHasKey = bNestsByKey;
        nest.bHasStart = !bNestsByKey;
        nest.start = pattern(attribute(mapElement, "nests"));
        context.lstRules.push_back(addRule(nest));
    }
    const std::vector<int> lstChildren = compileChildren(mapElement);
    context.lstRules.insert(context.lstRules.end(), lstChildren.begin(), lstChildren.end());
    m_lstContexts[size_t(nContext)] = context;
    m_lstReferences.push_back(
        {nContext, attribute(mapElement, "next"),
         attribute(mapElement, "inner").split(QLatin1Char(' '), Qt::SkipEmptyParts)});
    return nContext;
}

// "%1" is the key, "%2" its partner when it is an opening bracket.
int CRegionCompiler::addEnd(const QString &strEnd)
{
    SRegionRule rule;
    rule.kind = SRegionRule::End;
    rule.bMirrored = strEnd.contains(QLatin1String("%2"));
    const int nKey = strEnd.indexOf(QLatin1String(rule.bMirrored ? "%2" : "%1"));
    rule.bHasKey = nKey >= 0;
    const QString strBefore = rule.bHasKey ? strEnd.left(nKey) : strEnd;
    const QString strBehind = rule.bHasKey ? strEnd.mid(nKey + 2) : QString();
    rule.bHasStart = !strBefore.isEmpty();
    rule.start = pattern(strBefore);
    rule.bHasThen = !strBehind.isEmpty();
    rule.then = pattern(strBehind);
    return addRule(rule);
}

int CRegionCompiler::addBegin(const QVariantMap &mapElement, int nContext)
{
    SRegionRule rule;
    rule.kind = SRegionRule::Begin;
    rule.nContext = nContext;
    rule.bFromNextLine = isTrue(mapElement, "nextline");
    rule.start = pattern(attribute(mapElement, "start"));
    rule.bHasStart = hasAttribute(mapElement, "start");
    rule.key = pattern(attribute(mapElement, "key"));
    rule.bHasKey = hasAttribute(mapElement, "key");
    rule.then = pattern(attribute(mapElement, "then"));
    rule.bHasThen = hasAttribute(mapElement, "then");
    rule.after = CAnchoredPattern(attribute(mapElement, "after"), m_sensitivity,
                                  CAnchoredPattern::Backwards);
    rule.bHasAfter = hasAttribute(mapElement, "after");
    return addRule(rule);
}

void CRegionCompiler::resolve()
{
    for (const SReference &reference : m_lstReferences) {
        SRegionContext &context = m_lstContexts[size_t(reference.nContext)];
        context.nNext = m_mapNamed.value(reference.strNext, -1);
        for (const QString &strGroup : reference.lstGroups) {
            const std::vector<int> lst = m_mapGroups.value(strGroup);
            context.lstRules.insert(context.lstRules.end(), lst.begin(), lst.end());
        }
    }
}
