#include "pageedit/fileaddress.h"

#include <QDir>
#include <QFileInfo>
#include <QUrl>

QString fileAddress(const QString &strFile, const QString &strPage)
{
    if (strPage.isEmpty())
        return QUrl::fromLocalFile(strFile).toString(QUrl::FullyEncoded);
    const QString strWay = QFileInfo(strPage).dir().relativeFilePath(strFile);
    if (QDir::isAbsolutePath(strWay)) // The file is on another drive.
        return QUrl::fromLocalFile(strFile).toString(QUrl::FullyEncoded);
    QString strAddress;
    for (const QChar c : strWay)
        if (QStringLiteral("%?# \"<>\\^`{|}").contains(c) || c.category() == QChar::Other_Control)
            strAddress += QString::fromLatin1(QUrl::toPercentEncoding(c));
        else
            strAddress += c;
    // A colon in the first name would end a scheme.
    if (strAddress.section(QLatin1Char('/'), 0, 0).contains(QLatin1Char(':')))
        strAddress.prepend(QLatin1String("./"));
    return strAddress;
}
