#pragma once

#include <QStringList>

// Which dictionary belongs to a language. Pure functions, thread-safe.

// Of the names ("de_DE"), the one for a language as pages name it ("de", "de-AT", "zh-Hant-TW") or
// a locale ("de_AT"); the locale where the language is empty. The region counts first, then what
// most take the language for ("de" is "de_DE"), then the first name of the language. Empty for
// none.
QString dictionaryName(const QStringList &lstNames, const QString &strLanguage,
                       const QString &strLocale);

// The names of the dictionaries in the folders with the path of each, without its suffix. A name in
// an earlier folder hides those behind it.
struct SDictionaryFile
{
    QString strName;
    QString strBase;
};
QVector<SDictionaryFile> dictionaryFiles(const QStringList &lstFolders);
