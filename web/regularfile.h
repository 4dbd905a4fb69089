#pragma once

#include <QByteArray>
#include <QString>

// Reads a regular file whole. False, and nothing read, for anything else (a pipe or a device would
// never end), for a file of more than nMaxBytes, and for one that cannot be read to its end.
bool readRegularFile(const QString &strPath, qint64 nMaxBytes, QByteArray *pData);
