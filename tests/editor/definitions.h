#pragma once

#include <QVariantMap>

// A language definition with no more than a name and comment markers.
inline QVariantMap languageDefinition(const QString &strName, const QString &strSingle = QString(),
                                      const QString &strStart = QString(),
                                      const QString &strEnd = QString())
{
    const QVariantMap single {{"name", "singleline"}, {"start", strSingle}, {"end", ""}};
    const QVariantMap multi {{"name", "multiline"}, {"start", strStart}, {"end", strEnd}};
    QVariantMap general;
    general["comments"] = QVariantList {single, multi};
    QVariantMap language;
    language["name"] = strName;
    language["extensions"] = QString();
    QVariantMap definition;
    definition["language"] = language;
    definition["general"] = general;
    return definition;
}
