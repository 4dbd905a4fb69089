#pragma once

#include "app/filestate.h"

#include <QByteArray>
#include <QString>

#include <functional>

// What a reader asks for. The defaults suit a small file of the program's own.
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
    // read. Again where the reading begins anew, because the file is changing. May be empty.
    std::function<void(const QByteArray &beginning)> beginning;
};

// What was read, and what the file was then.
struct SFileContent
{
    enum class Fault {
        None, // bytes is the whole file.
        CannotOpen,
        NotAFile, // A folder, a pipe, a device. Nothing of it was read.
        TooLarge, // For nMaxSize: state.nSize tells how large; a second call may allow more.
        TooLargeAtAll, // For what a QByteArray can hold.
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
    // There is something to show: all of the file, or what another program was writing just then.
    bool hasBytes() const { return isWhole() || fault == Fault::Changing; }
};

// The largest file that a call can read, in bytes.
const qint64 g_nMaxReadable = 0x7fffffff - 0x1000;

// Reads a regular file, all of it or none. Does not wait for pipes and devices, does not take an
// error for an end, and does not allocate what is not there. Any thread; blocks while the disk
// does.
SFileContent readFile(const QString &strPath, const SReadLimits &limits = SReadLimits());

// What readFile() would find out before it reads: the file's state without a hash, and each fault
// that needs no byte of it. Any thread.
SFileContent lookAtFile(const QString &strPath, const SReadLimits &limits = SReadLimits());

// A content that could not be had, with the text for the user.
SFileContent readingFailed(SFileContent::Fault fault, const SFileState &state);

// The hash of a whole open file, as a state has it; empty where it cannot be read.
QByteArray hashOfOpenFile(int nHandle);

// True when the file is the one of the state and its content the same. It is read where its times
// do not tell: where the state is fresh, or only the time differs that a change of permissions or a
// new link changes, too, and there is a hash. The state then takes the times over.
bool isFileUnchanged(const QString &strPath, SFileState *pState);
