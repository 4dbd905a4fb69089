#include "web/filekey.h"

#include <QFile>

#include <sys/stat.h>

QByteArray fileKey(const QString &strPath)
{
    struct stat info = {};
    if (stat(QFile::encodeName(strPath).constData(), &info) != 0)
        return QByteArray();
    QByteArray key;
    for (const qint64 n : {qint64(info.st_dev), qint64(info.st_ino), qint64(info.st_size),
                           qint64(info.st_mtim.tv_sec), qint64(info.st_mtim.tv_nsec)})
        key += QByteArray::number(n, 16) + '.';
    return key;
}
