#include "app/systemcalls_win.h"

#include <QDir>

#include <cerrno>

#include <qt_windows.h>

namespace {

// A folder must leave room for a short name in it.
const int g_nLongestPlain = MAX_PATH - 13;

int errnoOf(DWORD nError)
{
    switch (nError) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
        return ENOENT;
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
        return EEXIST;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
        return ENOSPC;
    case ERROR_WRITE_PROTECT:
        return EROFS;
    case ERROR_FILENAME_EXCED_RANGE:
        return ENAMETOOLONG;
    case ERROR_TOO_MANY_OPEN_FILES:
        return EMFILE;
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_UNABLE_TO_REMOVE_REPLACED: // Both files are as they were.
    case ERROR_UNABLE_TO_MOVE_REPLACEMENT: // Both files are as they were, too.
        return EACCES;
    default:
        return EIO;
    }
}

} // namespace

std::wstring nativePath(const QString &strPath)
{
    const QString strNative = QDir::toNativeSeparators(strPath);
    const QString strPrefix = QStringLiteral("\\\\?\\");
    if (strNative.size() <= g_nLongestPlain || strNative.startsWith(strPrefix)
        || !QDir::isAbsolutePath(strPath))
        return strNative.toStdWString();
    const QString strClean = QDir::toNativeSeparators(QDir::cleanPath(strPath));
    const bool bServer = strClean.startsWith(QLatin1String("\\\\"));
    return (bServer ? QStringLiteral("\\\\?\\UNC") : strPrefix).toStdWString()
        + strClean.mid(bServer ? 1 : 0).toStdWString();
}

bool isDeviceName(const QString &strPath)
{
    // The system itself knows which names are devices; it gives them this beginning.
    wchar_t arrFull[MAX_PATH];
    const DWORD nLength = GetFullPathNameW(nativePath(strPath).c_str(), MAX_PATH, arrFull, nullptr);
    return nLength > 0 && nLength < MAX_PATH
        && QString::fromWCharArray(arrFull, int(nLength)).startsWith(QLatin1String("\\\\.\\"));
}

void setErrno()
{
    errno = errnoOf(GetLastError());
}

bool succeeded(bool bDone)
{
    if (!bDone)
        setErrno();
    return bDone;
}
