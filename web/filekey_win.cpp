#include "web/filekey.h"

#include <QDateTime>
#include <QFileInfo>

QByteArray fileKey(const QString &strPath)
{
    const QFileInfo info(strPath);
    if (!info.exists())
        return QByteArray();
    // Here paths tell files apart, and times are as fine as they get.
    return info.canonicalFilePath().toUtf8().toHex() + '.' + QByteArray::number(info.size(), 16)
        + '.' + QByteArray::number(info.lastModified().toMSecsSinceEpoch(), 16);
}
