#pragma once

#include <QString>
#include <QStringList>

class QFileInfo;
class QObject;

// Everything that differs between systems. Each function is defined in platform_unix.cpp and in
// platform_win.cpp. No other file asks for the system.
namespace Platform {

// The program's arguments, its own name first.
QStringList processArguments(int nArgc, char **ppArgv);

// True if the text can only mean a name in a folder, and no path, device or alternate stream.
bool isFileName(const QString &strName);

// True if both paths mean the same name for the system; on Windows case and the kind of separator
// do not count. The paths are absolute. Does not look at the disk.
bool isSamePath(const QString &strLeft, const QString &strRight);

// True if file names are bytes for the system and those bytes are UTF-8: the locale says so, or is
// the "C" locale, which says nothing about it.
bool hasUtf8Names();

// Tells Qt's X11 plug-in not to load OpenGL. Call it before the application object is made.
// Loading OpenGL takes as long as a bare window's whole start, and nothing here draws with it.
// A choice that the user made in the environment stays.
void leaveOutOpenGl();

// Restores the user's environment, for programs that are started later. Call it after the first
// window is shown.
void restoreEnvironment();

// Who owns the shared segment and its lock, if they exist. Others means that another user owns one
// of them, or may read or write it. Nothing may wait for such a lock.
enum class SegmentOwner { Nobody, Me, Others };
SegmentOwner ownerOfSegment(const QString &strKey);

// Takes the lock of QSharedMemory, for which it waits at most that many milliseconds;
// QSharedMemory::lock() itself waits for ever. False when it did not get the lock. Do not call it
// for a segment of Others.
bool lockSegment(const QString &strKey, int nMilliseconds);
void unlockSegment(const QString &strKey);

// Frees a shared segment that a crashed program left behind. Does not disturb a live owner.
void releaseDeadSegment(const QString &strKey);

// Makes SIGTERM and its kin end the event loop of QCoreApplication in an orderly way. The watcher
// lives as long as pParent.
void quitOnTermination(QObject *pParent);

// Shows the file, selected, in a file manager window. The request does not block.
bool revealFile(const QString &strPath);

// A key for the desktop's icon of a file: files with the same key share one icon. Empty if each
// file has to be looked up by itself.
QString fileIconKind(const QFileInfo &info);

// Gives a file or folder another name on the same disk. Unlike rename(), it never replaces another
// file. If it fails, it gives false with the system's text in pError (may be null).
bool renameWithoutReplacing(const QString &strOld, const QString &strNew, QString *pError);

// Removes the note that the trash keeps of a file that was moved out of it again.
void forgetTrashed(const QString &strPathInTrash);

// Opens a regular file for reading and gives its descriptor, which the caller closes, and its size
// in bytes. A link, a pipe or a device gives -1 at once.
int openRegularFile(const QString &strPath, qint64 *pSize);

// True when replacing the file by a renamed copy would lose something: it has further hard links, a
// foreign owner or group, or it is a device or a pipe.
bool mustWriteInPlace(const QString &strPath);

// Enlarges an open file to nSize bytes and really takes the space on the disk. False when the disk
// is full; errorText() has the reason.
bool reserveFileSpace(int nHandle, qint64 nSize);

// False if QSettings has no file of its own (on Windows it uses the registry).
bool keepsSettingsInFiles();

// The line-ending style of new documents: 0 CR LF, 1 LF.
int defaultReturnFormat();

// Returns freed memory to the system, which the C library would otherwise keep for later. May take
// some milliseconds, so call it only after something large was freed.
void returnFreedMemory();

} // namespace Platform
