#pragma once

#include <QStringList>

// Which dictionary belongs to a language. Pure functions, thread-safe.

// Picks the dictionary for a language from the names ("de_DE"). The language is written as in pages
// ("de", "de-AT", "zh-Hant-TW") or as a locale ("de_AT"); if it is empty, the locale counts. The
// same region comes first, then the usual region of the language ("de" is "de_DE"), then the first
// name of the language. Empty if none fits.
QString dictionaryName(const QStringList &lstNames, const QString &strLanguage,
                       const QString &strLocale);

// The names of the dictionaries in the folders with the path of each, without its suffix. A name in
// an earlier folder hides the same name in later ones.
struct SDictionaryFile
{
    QString strName;
    QString strBase;
};
QVector<SDictionaryFile> dictionaryFiles(const QStringList &lstFolders);
