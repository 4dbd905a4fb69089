#pragma once

#include <QStringList>
#include <QVariant>
#include <vector>

// For each character of each line: is it comment or string?
using CharacterClasses = std::vector<std::vector<bool>>;

CharacterClasses classesOfOurs(const QVariantMap &mapDefinition, const QStringList &lstLines);
// strFileName decides the peer's definition; empty when it has none.
CharacterClasses classesOfPeer(const QString &strFileName, const QStringList &lstLines);
