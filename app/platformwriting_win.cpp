#include "app/platformfiles.h"
#include "app/systemcalls_win.h"

#include <algorithm>
#include <cerrno>

#include <io.h>
#include <qt_windows.h>

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
    // This renaming is a single step. ReplaceFile() takes two, and between them no file has the
    // name.
    return succeeded(MoveFileExW(nativePath(strFrom).c_str(), nativePath(strTo).c_str(),
                                 MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH));
}

bool Platform::removeFile(const QString &strPath)
{
    return succeeded(DeleteFileW(nativePath(strPath).c_str()));
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
    // The locked byte is beyond anything that is ever read.
    range.OffsetHigh = 0x7fffffff;
    return LockFileEx(hFile, LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &range)
        ? FileLock::Mine
        : FileLock::AnothersNow;
}

void Platform::surviveFailingWrites() { }
