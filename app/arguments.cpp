#include "app/arguments.h"

#include <QFileInfo>

namespace {

QString absolutePath(const QString &strPath, const QDir &folder)
{
    const QFileInfo info(folder, strPath);
    if (QDir::isAbsolutePath(strPath) || !info.exists())
        return strPath;
    const QString strAbsolute = folder.absoluteFilePath(strPath);
    // Removes "." and "..", unless a ".." leads on from the target of a link.
    const QString strClean = QDir::cleanPath(strAbsolute);
    const bool bSame = QFileInfo(strClean).canonicalFilePath() == info.canonicalFilePath();
    return bSame ? strClean : strAbsolute;
}

} // namespace

QStringList pathsFromArguments(const QStringList &lstArguments, const QDir &folder)
{
    QStringList lstPaths;
    for (const QString &strArgument : lstArguments.mid(1)) {
        const QString strPath = strArgument.trimmed();
        if (!strPath.isEmpty())
            lstPaths.append(absolutePath(strPath, folder));
    }
    return lstPaths;
}

QString messageFromPaths(const QStringList &lstPaths)
{
    const QChar quote = QLatin1Char('"');
    QStringList lstQuoted;
    for (const QString &strPath : lstPaths)
        lstQuoted.append(strPath.startsWith(quote) ? strPath : QString(quote + strPath + quote));
    return lstQuoted.join(QLatin1Char(' '));
}

QStringList pathsFromMessage(const QString &strMessage)
{
    QStringList lstPaths;
    QString strToken;
    bool bInQuotes = false;
    for (const QChar c : strMessage) {
        if (c == QLatin1Char('"')) {
            // A closing quote ends a path even if nothing stands between the two.
            if (bInQuotes) {
                lstPaths.append(strToken);
                strToken.clear();
            }
            bInQuotes = !bInQuotes;
        } else if (c == QLatin1Char(' ') && !bInQuotes) {
            if (!strToken.trimmed().isEmpty())
                lstPaths.append(strToken.trimmed());
            strToken.clear();
        } else {
            strToken.append(c);
        }
    }
    if (!strMessage.isEmpty())
        lstPaths.append(strToken.trimmed());
    return lstPaths;
}
