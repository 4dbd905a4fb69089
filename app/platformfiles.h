#pragma once

#include <QByteArray>
#include <QString>

struct SFileState;

// Files as the systems give them: open ones are numbers, -1 is none. Each function stands once in
// platformfiles_unix.cpp (what only writers need: platformwriting_unix.cpp,
// platformattributes_unix.cpp) and once in platformfiles_win.cpp (platformwriting_win.cpp). Those
// that fail leave their reason for errorText(). None waits for somebody at the other end of a pipe.
// Any thread.
namespace Platform {

enum class FileKind { Missing, Regular, Folder, Stream, Other };

// Stream: a pipe, a terminal or another device that takes characters one after the other.
FileKind kindOfPath(const QString &strPath);
FileKind kindOfHandle(int nHandle);

// False, and nothing written, where the system does not tell.
bool stateOfPath(const QString &strPath, SFileState *pState);
bool stateOfHandle(int nHandle, SFileState *pState);

// True for files that the system makes up while they are read: their size says nothing.
bool isMadeUp(int nHandle);

enum class FileAccess { Read, Write, ReadWrite };

// An existing file. A pipe that nobody reads does not open for writing.
int openFile(const QString &strPath, FileAccess access);
bool closeFile(int nHandle);

// A new file, which fails where there is one already. For this user alone, or as the system makes
// them in that folder.
enum class FilePrivacy { OnlyMe, AsUsual };
int createFile(const QString &strPath, FilePrivacy privacy);

// Bytes read; 0 at the end, -1 on failure. Interrupted calls are made again.
qint64 readSome(int nHandle, char *pBuffer, qint64 nSize);

// An absolute path in the bytes that a library takes which opens files by itself. Windows: UTF-8,
// marked so that long paths are taken, too.
QByteArray pathForLibrary(const QString &strPath);

// A path as another program takes or tells it through a pipe, and back: the system's own bytes
// where names are bytes, UTF-8 on Windows, whose code page has not all letters.
QByteArray bytesOfPath(const QString &strPath);
QString pathOfBytes(const QByteArray &path);

// Whether the permissions of an existing file let this user write to it.
bool mayWrite(const QString &strPath);

// All bytes, or false. A pipe or terminal that takes nothing is waited for a second and a half, one
// that takes little a second more for each megabyte in all.
bool writeBytes(int nHandle, const char *pData, qint64 nSize);

// The next bytes are read and written so many bytes from the beginning.
bool moveTo(int nHandle, qint64 nPosition);
bool resizeFile(int nHandle, qint64 nSize);

// These bytes read as zeros from now on and take no room. False where the file system cannot.
bool makeHole(int nHandle, qint64 nPosition, qint64 nSize);

// Waits until the disk has the bytes and the size; a device that cannot tell is believed. For a
// folder: until the disk has its names.
bool syncFile(int nHandle);
bool syncFolder(const QString &strFolder);

// Replaces what is there under the new name.
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

// Holds an open file for this process until it is closed. Unknown where the file system has no
// locks.
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
