#include "app/platformfiles.h"
#include "app/systemcalls_win.h"

#include <algorithm>
#include <cerrno>

#include <io.h>
#include <qt_windows.h>

namespace {

// There is nothing to replace, or it is gone without what should have taken its place, or the file
// system knows no replacing.
bool leavesMovingOnly(DWORD nError)
{
    return nError == ERROR_FILE_NOT_FOUND || nError == ERROR_UNABLE_TO_MOVE_REPLACEMENT_2
        || nError == ERROR_NOT_SUPPORTED || nError == ERROR_INVALID_FUNCTION;
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
        return succeeded(false);
    return succeeded(MoveFileExW(strOld.c_str(), strNew.c_str(),
                                 MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH));
}

bool Platform::removeFile(const QString &strPath)
{
    return succeeded(DeleteFileW(nativePath(strPath).c_str()));
}

bool Platform::carryOver(const QString &strPath, int nHandle)
{
    // Hidden files stay hidden. Access lists and streams come with renameFile().
    FILE_BASIC_INFO info = {}; // Times of zero stay what they are.
    info.FileAttributes = GetFileAttributesW(nativePath(strPath).c_str());
    if (info.FileAttributes == INVALID_FILE_ATTRIBUTES)
        return true;
    const auto hFile = reinterpret_cast<HANDLE>(_get_osfhandle(nHandle));
    return succeeded(SetFileInformationByHandle(hFile, FileBasicInfo, &info, sizeof info));
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
