#pragma once

#include <QByteArray>
#include <QString>

class QIODevice;
struct SFileState;

// Puts the bytes into the file so that a failure at any moment leaves the old bytes as they were:
// false then, and pError (may be null) says what failed. True means that the disk has them. Any
// thread.
//
// The file is replaced by a finished copy that has the old file's owner, permissions and
// attributes. Symbolic links are followed. Where a replacement would lose something (see
// Platform::mustWriteInPlace), or the folder takes no new file, the file is written in place (see
// inplacewriter.h).
//
// pState (may be null) is set to the state in which this call left the file, also if it failed
// after writing to the file. So what another program writes a moment later is seen as a change. If
// the file was not touched, or is a pipe, pState stays as it is.
bool writeFile(const QString &strPath, const QByteArray &data, QString *pError = nullptr,
               SFileState *pState = nullptr);

// Writes all bytes to the device and flushes its buffer; false if that failed.
bool writeAll(QIODevice *pDevice, const QByteArray &data);
