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

// Until the disk has what was written, and how large it is; a device that does not know about it is
// believed. The folder: until it has the names in it.
bool syncFile(int nHandle);
bool syncFolder(const QString &strFolder);

// In the place of what is there under the new name.
bool renameFile(const QString &strFrom, const QString &strTo);
bool removeFile(const QString &strPath);

// Gives the new file all that hangs on the one at the path: owner, group, permissions, access
// lists, attributes. False when it could not; the file is then as narrow as it was or as the other.
bool carryOver(const QString &strPath, int nHandle);

// What the system takes from a file that is written to, and to give it back.
struct SPrivileges
{
    unsigned nMode = 0;
    QByteArray capabilities;
};
SPrivileges privilegesOf(int nHandle);
void restorePrivileges(int nHandle, const SPrivileges &privileges);

// True where the last failure means that a folder takes no new file or gives no old one away,
// though the file in it may be written.
bool isFolderClosed();

// Holds an open file for this process until it is closed. Unknown where the file system has no
// locks.
enum class FileLock { Mine, AnothersNow, Unknown };
FileLock lockFile(int nHandle);

// Neither a pipe whose reader has gone nor a limit of file sizes ends the program from now on: the
// write fails instead.
void surviveFailingWrites();

// The system's text for what the last function here that failed on this thread failed with.
QString errorText();

// Bytes of memory that this process can still get without driving the machine to its end; -1 where
// the system does not tell.
qint64 availableMemory();

} // namespace Platform
