#include "spelling/dictionaryname.h"

#include <QDir>
#include <QLocale>
#include <QSet>

namespace {

// Turns "de-AT" and "de_AT.UTF-8" into "de_AT"; drops a script between language and region.
QString normalName(const QString &strLanguage)
{
    QString strName = strLanguage.trimmed().section(QLatin1Char('.'), 0, 0);
    strName.replace(QLatin1Char('-'), QLatin1Char('_'));
    const QStringList lstParts = strName.split(QLatin1Char('_'));
    QString strNormal = lstParts.first().toLower();
    for (const QString &strPart : lstParts.mid(1))
        if (strPart.size() == 2)
            return strNormal + QLatin1Char('_') + strPart.toUpper();
    return strNormal;
}

QString languageOf(const QString &strName)
{
    return strName.section(QLatin1Char('_'), 0, 0);
}

} // namespace

QString dictionaryName(const QStringList &lstNames, const QString &strLanguage,
                       const QString &strLocale)
{
    const QString strLocaleName = normalName(strLocale);
    const QString strWanted =
        strLanguage.trimmed().isEmpty() ? strLocaleName : normalName(strLanguage);
    if (strWanted.isEmpty())
        return QString();
    QStringList lstTried {strWanted};
    if (!strWanted.contains(QLatin1Char('_')) && languageOf(strLocaleName) == strWanted)
        lstTried.append(strLocaleName); // The locale's variant of the language.
    lstTried.append(QLocale(languageOf(strWanted)).name());
    for (const QString &strTried : qAsConst(lstTried))
        if (languageOf(strTried) == languageOf(strWanted) && lstNames.contains(strTried))
            return strTried;
    QStringList lstSorted = lstNames;
    lstSorted.sort();
    for (const QString &strName : qAsConst(lstSorted))
        if (languageOf(strName) == languageOf(strWanted))
            return strName;
    return QString();
}

QVector<SDictionaryFile> dictionaryFiles(const QStringList &lstFolders)
{
    QVector<SDictionaryFile> lst;
    QSet<QString> known;
    for (const QString &strFolder : lstFolders) {
        const QFileInfoList lstInfos =
            QDir(strFolder).entryInfoList({QStringLiteral("*.dic")}, QDir::Files, QDir::Name);
        for (const QFileInfo &info : lstInfos) {
            const QString strBase = info.path() + QLatin1Char('/') + info.completeBaseName();
            if (known.contains(info.completeBaseName())
                || !QFileInfo::exists(strBase + QLatin1String(".aff")))
                continue;
            known.insert(info.completeBaseName());
            lst.append({info.completeBaseName(), strBase});
        }
    }
    return lst;
}
