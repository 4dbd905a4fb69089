#pragma once

#include <QStringList>
#include <QVariant>
#include <vector>

// Tells for each character of each line whether it is in a comment or string.
using CharacterClasses = std::vector<std::vector<bool>>;

struct SPeersText
{
    CharacterClasses asItStands; // By the kinds of its styles.
    CharacterClasses byGrammar; // The same with wrong styles put right.
    std::vector<QStringList> lstStyles; // The names of the styles of each character.
};

CharacterClasses classesOfOurs(const QVariantMap &mapDefinition, const QStringList &lstLines);
// strFileName decides the peer's definition; empty when it has none. strLanguage is the one of the
// table of styles.
SPeersText classesOfPeer(const QString &strLanguage, const QString &strFileName,
                         const QStringList &lstLines);
