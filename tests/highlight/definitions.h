#pragma once

#include <QMap>
#include <QString>
#include <QVariant>

// Parsed definitions as the registry gives them, made in memory.

struct STestDefinition
{
    QString strSingleLine;
    QString strMultiLineStart;
    QString strMultiLineEnd;
    QString strTagOpen;
    QString strTagClose;
    bool bCaseSensitive = true;
    QMap<QString, QStringList> mapLists;

    QVariantMap toMap() const;
};

QMap<QString, QVariantMap> nastyDefinitions();
// The same with regions, and the shipped ones that have the most of them.
QList<QVariantMap> declaredDefinitions();
