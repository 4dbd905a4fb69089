#pragma once

#include <QString>

#include <string>

// What the parts of Platform for Windows have in common. Any thread.

// A path for the functions of Windows. If it is too long for them, it gets the prefix that lifts
// the limit; a path with the prefix may not be relative or hold "..".
std::wstring nativePath(const QString &strPath);

// True for a name that means a device in every folder: CON, NUL, COM1 and so on; on some systems
// also with an ending.
bool isDeviceName(const QString &strPath);

// The C library's number for the last failure of a system function.
void setErrno();

// Gives bDone back; sets errno if it is false.
bool succeeded(bool bDone);
