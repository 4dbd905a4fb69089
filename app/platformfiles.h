#pragma once

#include <QString>

struct SFileState;

// Files as the systems give them: open ones are numbers, -1 is none. Each function stands once in
// platform_unix_files.cpp and once in platform_win_files.cpp. Those that fail leave their reason
// for errorText(). None waits for somebody at the other end of a pipe. Any thread.
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

// Bytes read; 0 at the end, -1 on failure. Interrupted calls are made again.
qint64 readSome(int nHandle, char *pBuffer, qint64 nSize);

// The system's text for what the last function here that failed on this thread failed with.
QString errorText();

// Bytes of memory that this process can still get without driving the machine to its end; -1 where
// the system does not tell.
qint64 availableMemory();

} // namespace Platform
