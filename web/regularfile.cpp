#include "web/regularfile.h"

#include <QFile>
#include <QFileInfo>

bool readRegularFile(const QString &strPath, qint64 nMaxBytes, QByteArray *pData)
{
    QFile file(strPath);
    if (!QFileInfo(strPath).isFile() || !file.open(QIODevice::ReadOnly) || file.size() > nMaxBytes)
        return false;
    *pData = file.readAll();
    return file.error() == QFileDevice::NoError && pData->size() >= file.size();
}
