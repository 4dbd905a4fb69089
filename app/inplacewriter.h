#pragma once

#include <QByteArray>
#include <QString>

struct SFileState;

// Overwrites an existing file in place. It reserves the space first and keeps the old bytes (see
// CInPlaceJournal) until the disk has the new ones; when those do not fit, the old ones come back.
// If the disk has no room for the copy, a file of up to 256 MB is copied to memory, which does not
// survive the end of the program. A larger file is refused. Pipes and terminals get the bytes as
// they are. pState and pError as for writeFile(), but not null.
bool writeInPlace(const QString &strPath, const QByteArray &data, QString *pError,
                  SFileState *pState);
