#pragma once

#include "support/files.h"

#include <QDir>

// A dictionary of few words for a language, in the folder.
inline void putDictionary(const QString &strFolder, const QString &strName, const QString &strWords,
                          const QByteArray &arrEncoding = "UTF-8")
{
    QVERIFY(QDir().mkpath(strFolder));
    const QString strBase = strFolder + QLatin1Char('/') + strName;
    put(strBase + QLatin1String(".aff"),
        "SET " + arrEncoding
            + "\nTRY esianrtolcdugmphbyfvkwz'\nWORDCHARS '\nSFX S Y 1\nSFX S 0 s .\n");
    const QStringList lstWords = strWords.split(QLatin1Char(' '));
    const QString strFile =
        QString::number(lstWords.size()) + QLatin1Char('\n') + lstWords.join(QLatin1Char('\n'));
    put(strBase + QLatin1String(".dic"),
        arrEncoding == "UTF-8" ? strFile.toUtf8() : strFile.toLatin1());
}
