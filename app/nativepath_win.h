#pragma once

#include <QString>

#include <string>

// A path as the functions of Windows take it. Those too long for them otherwise get the prefix that
// lifts the limit; a path with the prefix may not be relative or hold "..". Any thread.
std::wstring nativePath(const QString &strPath);

// True for what names a device wherever it stands: CON, NUL, COM1 and so on, on some systems also
// with an ending.
bool isDeviceName(const QString &strPath);
