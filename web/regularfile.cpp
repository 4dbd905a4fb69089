#include "web/regularfile.h"

#include "app/filereader.h"

bool readRegularFile(const QString &strPath, qint64 nMaxBytes, QByteArray *pData)
{
    SReadLimits limits;
    limits.nMaxSize = nMaxBytes;
    const SFileContent content = readFile(strPath, limits);
    if (!content.isWhole())
        return false;
    *pData = content.bytes;
    return true;
}
