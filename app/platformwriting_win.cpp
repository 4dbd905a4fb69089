#include "app/nativepath_win.h"
#include "app/platformfiles.h"

#include <algorithm>
#include <cerrno>

#include <io.h>
#include <qt_windows.h>

namespace {

// The C library's numbers for the system's.
int errnoOf(DWORD nError)
{
    switch (nError) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
        return ENOENT;
    case ERROR_DISK_FULL:
        return ENOSPC;
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_UNABLE_TO_REMOVE_REPLACED: // Both files are as they were.
    case ERROR_UNABLE_TO_MOVE_REPLACEMENT: // Likewise.
        return EACCES;
    default:
        return EIO;
    }
}

// There is nothing to replace, or it is gone without what should have taken its place, or the file
// system knows no replacing.
bool leavesMovingOnly(DWORD nError)
{
    return nError == ERROR_FILE_NOT_FOUND || nError == ERROR_UNABLE_TO_MOVE_REPLACEMENT_2
        || nError == ERROR_NOT_SUPPORTED || nError == ERROR_INVALID_FUNCTION;
}

bool succeeded(BOOL bDone)
{
    if (!bDone)
        errno = errnoOf(GetLastError());
    return bDone;
}

} // namespace

bool Platform::mayWrite(const QString &strPath)
{
    const int nWrite = 2; // The C library's number.
    return _waccess(nativePath(strPath).c_str(), nWrite) == 0;
}

bool Platform::writeBytes(int nHandle, const char *pData, qint64 nSize)
{
    const qint64 nAtOnce = 1 << 26;
    while (nSize > 0) {
        const int nWritten = _write(nHandle, pData, unsigned(std::min(nSize, nAtOnce)));
        if (nWritten <= 0)
            return false;
        pData += nWritten;
        nSize -= nWritten;
    }
    return true;
}

bool Platform::moveTo(int nHandle, qint64 nPosition)
{
    return _lseeki64(nHandle, nPosition, SEEK_SET) == nPosition;
}

bool Platform::resizeFile(int nHandle, qint64 nSize)
{
    return _chsize_s(nHandle, nSize) == 0;
}

bool Platform::makeHole(int, qint64, qint64)
{
    return false;
}

bool Platform::syncFile(int nHandle)
{
    return _commit(nHandle) == 0;
}

bool Platform::syncFolder(const QString &)
{
    return true; // The system does it with the renaming.
}

bool Platform::renameFile(const QString &strFrom, const QString &strTo)
{
    const std::wstring strOld = nativePath(strFrom);
    const std::wstring strNew = nativePath(strTo);
    // This way the file that is replaced gives the new one its access lists, attributes, further
    // streams and the time it was made.
    if (ReplaceFileW(strNew.c_str(), strOld.c_str(), nullptr, 0, nullptr, nullptr))
        return true;
    if (!leavesMovingOnly(GetLastError()))
        return succeeded(FALSE);
    return succeeded(MoveFileExW(strOld.c_str(), strNew.c_str(),
                                 MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH));
}

bool Platform::removeFile(const QString &strPath)
{
    return succeeded(DeleteFileW(nativePath(strPath).c_str()));
}

bool Platform::carryOver(const QString &, int)
{
    return true; // renameFile() does it.
}

Platform::SPrivileges Platform::privilegesOf(int)
{
    return SPrivileges();
}

void Platform::restorePrivileges(int, const SPrivileges &) { }

bool Platform::isFolderClosed()
{
    return errno == EACCES || errno == EPERM || errno == EROFS || errno == ENAMETOOLONG;
}

Platform::FileLock Platform::lockFile(int nHandle)
{
    OVERLAPPED range = {};
    const auto hFile = reinterpret_cast<HANDLE>(_get_osfhandle(nHandle));
    // Behind anything that is ever read.
    range.OffsetHigh = 0x7fffffff;
    return LockFileEx(hFile, LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &range)
        ? FileLock::Mine
        : FileLock::AnothersNow;
}

void Platform::surviveFailingWrites() { }
