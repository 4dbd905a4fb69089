#pragma once

#include "app/filestate.h"

#include <QByteArray>
#include <QString>

#include <functional>

// What the caller asks for. The defaults suit a small file of the program's own.
struct SReadLimits
{
    // Bytes; a larger file is refused as TooLarge before any of it is read.
    qint64 nMaxSize = qint64(16) << 20;
    // Bytes of memory that each byte of the file will take in the end, the bytes themselves
    // included. A text takes some ten times as much in an editor.
    int nMemoryPerByte = 1;
    // Called on the reading thread after each megabyte with the bytes read and those expected (-1
    // where the system does not tell); false gives up. May be empty.
    std::function<bool(qint64 nDone, qint64 nAll)> progress;
    // Called on the reading thread with the first bytes, a megabyte at most, before the others are
    // read. Called again if the reading starts over because the file is changing. May be empty.
    std::function<void(const QByteArray &beginning)> beginning;
};

// What was read, and what the file was then.
struct SFileContent
{
    enum class Fault {
        None, // bytes is the whole file.
        CannotOpen,
        NotAFile, // A folder, a pipe, a device. Nothing of it was read.
        // Larger than nMaxSize: state.nSize tells how large, and a second call may allow more.
        TooLarge,
        TooLargeAtAll, // Too large for a QByteArray.
        NoMemory,
        ReadError,
        Changing, // Another program writes to it; bytes holds the last try, state its beginning.
        Cancelled,
    };

    QByteArray bytes; // Empty with all faults but Changing.
    // The state of the descriptor before its first byte was read. It has a hash if the file is
    // fresh or no larger than 4 MB.
    SFileState state;
    Fault fault = Fault::None;
    QString strError; // For the user, without the file's name. Empty: read whole.

    bool isWhole() const { return fault == Fault::None; }
    // True when there is something to show: all of the file, or what another program was writing at
    // that moment.
    bool hasBytes() const { return isWhole() || fault == Fault::Changing; }
};

// The largest file that a call can read, in bytes.
const qint64 g_nMaxReadable = 0x7fffffff - 0x1000;

// Reads a regular file, all of it or none. Does not wait for pipes and devices, reports an error as
// an error and not as the end of the file, and allocates no memory that the machine does not have.
// Any thread; blocks while the disk does.
SFileContent readFile(const QString &strPath, const SReadLimits &limits = SReadLimits());

// What readFile() finds out before it reads: the file's state without a hash, and each fault that
// shows without reading a byte. Any thread.
SFileContent lookAtFile(const QString &strPath, const SReadLimits &limits = SReadLimits());

// A content that could not be read, with the text for the user.
SFileContent readingFailed(SFileContent::Fault fault, const SFileState &state);

// The hash of a whole open file, of the kind that states hold; empty if the file cannot be read.
QByteArray hashOfOpenFile(int nHandle);

// True when the file is the one of the state and its content is the same. If there is a hash, the
// file is read in two cases: the state is fresh, or the only difference is the time that new
// permissions or a new link change as well. The state then takes over the new times.
bool isFileUnchanged(const QString &strPath, SFileState *pState);
