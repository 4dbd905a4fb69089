#pragma once

#include <QByteArray>
#include <QString>

struct SFileState;

// Writes an existing file over itself. Its space is reserved first, its old bytes are kept (see
// CInPlaceJournal) until the disk has the new ones, and come back when those do not fit. Where no
// copy can be kept on the disk, a file of up to 256 MB has one in memory, which the end of the
// program takes along; a larger one is refused. Pipes and terminals take the bytes as they come.
// pState and pError as for writeFile(), but not null.
bool writeInPlace(const QString &strPath, const QByteArray &data, QString *pError,
                  SFileState *pState);
