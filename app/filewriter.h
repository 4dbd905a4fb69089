#pragma once

#include <QByteArray>
#include <QString>

class QIODevice;
struct SFileState;

// Puts the bytes into the file so that a failure at any moment leaves the old bytes as they were:
// false then, and pError (may be null) says what failed. True means that the disk has them. Any
// thread.
//
// The file is replaced by a finished copy that carries all that hangs on it. Symbolic links are
// followed. Where a replacement would lose something (see Platform::mustWriteInPlace), or the
// folder takes no new file, the file is written in place (see inplacewriter.h).
//
// pState (may be null) is set to the file as this call left it, also where it failed but wrote to
// the file: what another program writes a moment later differs from it. Where the file was not
// touched, or is a pipe, it stays as it is.
bool writeFile(const QString &strPath, const QByteArray &data, QString *pError = nullptr,
               SFileState *pState = nullptr);

// All bytes to the device and through its buffer, or false.
bool writeAll(QIODevice *pDevice, const QByteArray &data);
