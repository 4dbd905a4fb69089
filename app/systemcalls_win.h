#pragma once

#include <QString>

#include <string>

// What the parts of Platform for Windows have in common. Any thread.

// A path as the functions of Windows take it. Those too long for them otherwise get the prefix that
// lifts the limit; a path with the prefix may not be relative or hold "..".
std::wstring nativePath(const QString &strPath);

// True for what names a device wherever it stands: CON, NUL, COM1 and so on, on some systems also
// with an ending.
bool isDeviceName(const QString &strPath);

// The C library's number for what the system's function that was called last failed with.
void setErrno();

// What bDone says; sets errno where it is false.
bool succeeded(bool bDone);
