#pragma once

#include <QByteArray>
#include <QString>

struct SFileState;

// Files as the system knows them: an open file is a number, -1 stands for none. Each function is
// defined in platformfiles_unix.cpp (what only writers need: platformwriting_unix.cpp,
// platformattributes_unix.cpp) and in platformfiles_win.cpp (platformwriting_win.cpp). Those that
// fail leave their reason for errorText(). None waits for somebody at the other end of a pipe. Any
// thread.
namespace Platform {

enum class FileKind { Missing, Regular, Folder, Stream, Other };

// Stream: a pipe, a terminal or another device that takes characters one after the other.
FileKind kindOfPath(const QString &strPath);
FileKind kindOfHandle(int nHandle);

// False, and nothing is written to it, if the system does not tell.
bool stateOfPath(const QString &strPath, SFileState *pState);
bool stateOfHandle(int nHandle, SFileState *pState);

// True for files that the system makes up while they are read: their size says nothing.
bool isMadeUp(int nHandle);

enum class FileAccess { Read, Write, ReadWrite };

// An existing file. A pipe that nobody reads does not open for writing.
int openFile(const QString &strPath, FileAccess access);
bool closeFile(int nHandle);

// Makes a new file; fails if there is one already. Its permissions are for this user alone, or
// those that the system gives new files in that folder.
enum class FilePrivacy { OnlyMe, AsUsual };
int createFile(const QString &strPath, FilePrivacy privacy);

// Bytes read; 0 at the end, -1 on failure. Interrupted calls are made again.
qint64 readSome(int nHandle, char *pBuffer, qint64 nSize);

// An absolute path as bytes for a library that opens files by itself. On Windows it is UTF-8, with
// the prefix that allows long paths.
QByteArray pathForLibrary(const QString &strPath);

// Converts a path to the bytes that another program sends or expects in a pipe, and back. They are
// the system's own bytes if names are bytes, and UTF-8 on Windows, whose code page lacks many
// letters.
QByteArray bytesOfPath(const QString &strPath);
QString pathOfBytes(const QByteArray &path);

// Whether the permissions of an existing file let this user write to it.
bool mayWrite(const QString &strPath);

// Writes all bytes, or gives false. It waits a second and a half for a pipe or terminal that takes
// nothing, and one more second for each megabyte if it takes little.
bool writeBytes(int nHandle, const char *pData, qint64 nSize);

// Moves the place of the next read or write to so many bytes from the beginning.
bool moveTo(int nHandle, qint64 nPosition);
bool resizeFile(int nHandle, qint64 nSize);

// Turns these bytes into zeros that take no room. False if the file system cannot do that.
bool makeHole(int nHandle, qint64 nPosition, qint64 nSize);

// Waits until the disk has the bytes and the size; a device that cannot tell is believed. For a
// folder: until the disk has its names.
bool syncFile(int nHandle);
bool syncFolder(const QString &strFolder);

// Replaces any file under the new name.
bool renameFile(const QString &strFrom, const QString &strTo);
bool removeFile(const QString &strPath);

// Copies owner, group, permissions, access lists and attributes of the file at the path to the open
// file. False when it could not; nobody may then read or write the open file who could not before.
bool carryOver(const QString &strPath, int nHandle);

// Set-id bits and capabilities: the system removes them from a file that is written to.
struct SPrivileges
{
    unsigned nMode = 0;
    QByteArray capabilities;
};
SPrivileges privilegesOf(int nHandle);
void restorePrivileges(int nHandle, const SPrivileges &privileges);

// True when the last failure means that no file may be made in or removed from the folder. A file
// in it may be writable all the same.
bool isFolderClosed();

// Locks an open file for this process until it is closed. Unknown if the file system has no locks.
enum class FileLock { Mine, AnothersNow, Unknown };
FileLock lockFile(int nHandle);

// Makes writing to a pipe without a reader, or beyond a limit of file sizes, fail instead of ending
// the program (SIGPIPE, SIGXFSZ).
void surviveFailingWrites();

// The system's text for the last failure of a function here on this thread.
QString errorText();

// Bytes of memory that this process can still get without making the machine swap; -1 where the
// system does not tell.
qint64 availableMemory();

} // namespace Platform
