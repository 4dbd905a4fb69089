#pragma once

#include "highlight/canchoredpattern.h"
#include "highlight/cregionrules.h"

#include <QMap>
#include <QStringList>

// Turns the elements of a definition's regions into contexts and rules.
class CRegionCompiler
{
public:
    CRegionCompiler(QStringList lstLanguages, Qt::CaseSensitivity sensitivity);

    void compile(const QVariantMap &mapRegions);

    std::vector<SRegionContext> m_lstContexts;
    std::vector<SRegionRule> m_lstRules;
    std::vector<int> m_lstAnywhere;

private:
    // Filled in when all elements have been read.
    struct SReference
    {
        int nContext;
        QString strNext;
        QStringList lstGroups;
    };

    CAnchoredPattern pattern(const QString &str) const;
    std::vector<int> compileChildren(const QVariantMap &mapElement);
    int compileToken(const QVariantMap &mapElement);
    int compileRegion(const QVariantMap &mapElement);
    int compileContext(const QVariantMap &mapElement);
    int addEnd(const QString &strEnd);
    int addBegin(const QVariantMap &mapElement, int nContext);
    int addRule(const SRegionRule &rule);
    void resolve();

    const QStringList m_lstLanguages;
    const Qt::CaseSensitivity m_sensitivity;
    QMap<QString, std::vector<int>> m_mapGroups;
    QMap<QString, int> m_mapNamed;
    std::vector<SReference> m_lstReferences;
};
