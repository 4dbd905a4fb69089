#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

class QFileInfo;
class QObject;

// Everything that differs between systems. Each function stands once in platform_unix.cpp and once
// in platform_win.cpp; no other file asks which system it is on.
namespace Platform {

// The program's arguments, its own name first, as local 8-bit strings.
QList<QByteArray> processArguments(int nArgc, char **ppArgv);

// True where the system's names of files are bytes, and those bytes UTF-8: by the locale, or
// because the locale is the one without a language and says nothing.
bool hasUtf8Names();

// Before the application object: Qt's X11 plug-in, which asks for OpenGL with the first window, is
// told to do without. To load it takes as long as the bare start of a window, and nothing here
// draws with it. A choice that the user made in the environment stays.
void leaveOutOpenGl();

// After the first window: the environment is again what the user gave, for programs started later.
void restoreEnvironment();

// Whose the shared segment and its lock are, whichever of the two there are already. What is not
// this user's, or what others may read or write, is of Others: nothing must wait for it.
enum class SegmentOwner { Nobody, Me, Others };
SegmentOwner ownerOfSegment(const QString &strKey);

// The lock of QSharedMemory, which by itself waits for ever: for so many milliseconds at most.
// False without it. Only where the owner is not of Others.
bool lockSegment(const QString &strKey, int nMilliseconds);
void unlockSegment(const QString &strKey);

// Frees a shared segment that a crashed program left behind. Does not disturb a live owner.
void releaseDeadSegment(const QString &strKey);

// Requests to end the program from outside end the event loop of QCoreApplication in order.
// The watcher lives as long as pParent.
void quitOnTermination(QObject *pParent);

// Shows the file, selected, in a file manager window. The request does not block.
bool revealFile(const QString &strPath);

// Names what the desktop's icon of a file hangs on: files of one kind have one icon. Empty where
// each file must be asked for.
QString fileIconKind(const QFileInfo &info);

// True when replacing the file by a renamed copy would lose what hangs on it and no copy can carry:
// further hard links, a foreign owner, a device or pipe.
// Gives a file or folder another name on the same disk. Unlike rename(), never puts it in the place
// of another: false then, as after any failure, with the system's text in pError (may be null).
bool renameWithoutReplacing(const QString &strOld, const QString &strNew, QString *pError);

// Opens a regular file for reading, and nothing else: a link, a pipe or a device gives -1, and none
// is waited for. Otherwise a file descriptor, the caller's to close, and the size in bytes.
int openRegularFile(const QString &strPath, qint64 *pSize);

// True when replacing the file by a renamed copy would lose what hangs on it: further hard links,
// a foreign owner or group, a device or pipe.
bool mustWriteInPlace(const QString &strPath);

// Enlarges an open file to nSize bytes with the disk space really taken. False when the disk is
// full; the reason is in errorText().
bool reserveFileSpace(int nHandle, qint64 nSize);

// False where QSettings has no file of its own (the registry of Windows).
bool keepsSettingsInFiles();

// The line-ending style of new documents: 0 CR LF, 1 LF.
int defaultReturnFormat();

} // namespace Platform
