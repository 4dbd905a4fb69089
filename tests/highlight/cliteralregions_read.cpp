// Reads the elements of a definition unchanged.
#include "highlight/cliteralregions.h"

CLiteralRegions::CLiteralRegions(const QVariantMap &mapDefinition)
{
    const QVariantMap mapEmbedded = mapDefinition.value("embedded").toMap();
    m_lstNames = QStringList {QString()} + mapEmbedded.keys();
    addLanguage(mapDefinition);
    for (const QVariant &embedded : mapEmbedded)
        addLanguage(embedded.toMap());
}

void CLiteralRegions::addLanguage(const QVariantMap &mapDefinition)
{
    SLanguage language;
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
    auto pElement = std::make_shared<SElement>();
    pElement->strTag = mapElement.value("tag").toString().toLower();
    pElement->nLanguage = nLanguage;
    pElement->nNumber = m_nElements++;
    const QVariantMap mapAttributes = mapElement.value("attributes").toMap();
    for (auto it = mapAttributes.begin(); it != mapAttributes.end(); ++it)
        pElement->mapAttributes.insert(it.key(), it.value().toString());
    for (const QVariant &child : mapElement.value("children").toList())
        pElement->lstChildren.push_back(read(child.toMap(), nLanguage));
    return pElement;
}

void CLiteralRegions::collectNames(const ElementPtr &pElement, SLanguage *pLanguage)
{
    for (const ElementPtr &pChild : pElement->lstChildren) {
        if (pChild->strTag == "group")
            pLanguage->mapGroups.insert(pChild->get("name"), pChild);
        else if (pChild->strTag == "region" && pChild->has("name"))
            pLanguage->mapNamed.insert(pChild->get("name"), pChild);
        collectNames(pChild, pLanguage);
    }
}
