#include "app/filestate.h"
#include "app/platformfiles.h"
#include "app/systemcalls_win.h"

#include <QDir>

#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <io.h>
#include <qt_windows.h>

namespace {

HANDLE handleOf(int nHandle)
{
    return reinterpret_cast<HANDLE>(_get_osfhandle(nHandle));
}

// Opens a file that others may read, write, rename and delete meanwhile, as on other systems.
int descriptorOf(const QString &strPath, DWORD nAccess, DWORD nDisposition)
{
    const HANDLE hFile = CreateFileW(nativePath(strPath).c_str(), nAccess,
                                     FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                     nullptr, nDisposition, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (!succeeded(hFile != INVALID_HANDLE_VALUE))
        return -1;
    const int nFlags = nAccess & GENERIC_WRITE ? _O_RDWR : _O_RDONLY;
    return _open_osfhandle(reinterpret_cast<intptr_t>(hFile), nFlags | _O_BINARY | _O_NOINHERIT);
}

quint64 joined(DWORD nHigh, DWORD nLow)
{
    return quint64(nHigh) << 32 | nLow;
}

// Windows counts hundreds of nanoseconds since 1601.
qint64 nanoseconds(const FILETIME &time)
{
    return (qint64(joined(time.dwHighDateTime, time.dwLowDateTime)) - 116444736000000000) * 100;
}

bool stateOf(HANDLE hFile, SFileState *pState)
{
    BY_HANDLE_FILE_INFORMATION info = {};
    if (!GetFileInformationByHandle(hFile, &info))
        return false;
    pState->bExists = true;
    pState->nDevice = info.dwVolumeSerialNumber;
    pState->nInode = joined(info.nFileIndexHigh, info.nFileIndexLow);
    pState->nSize = qint64(joined(info.nFileSizeHigh, info.nFileSizeLow));
    pState->nModifiedNs = nanoseconds(info.ftLastWriteTime);
    return true;
}

} // namespace

Platform::FileKind Platform::kindOfPath(const QString &strPath)
{
    if (isDeviceName(strPath))
        return FileKind::Other;
    const DWORD nAttributes = GetFileAttributesW(nativePath(strPath).c_str());
    if (nAttributes == INVALID_FILE_ATTRIBUTES)
        return FileKind::Missing;
    if (nAttributes & FILE_ATTRIBUTE_DIRECTORY)
        return FileKind::Folder;
    return FileKind::Regular;
}

Platform::FileKind Platform::kindOfHandle(int nHandle)
{
    switch (GetFileType(handleOf(nHandle))) {
    case FILE_TYPE_DISK:
        return FileKind::Regular;
    case FILE_TYPE_CHAR:
    case FILE_TYPE_PIPE:
        return FileKind::Stream;
    default:
        return FileKind::Other;
    }
}

bool Platform::stateOfPath(const QString &strPath, SFileState *pState)
{
    const HANDLE hFile = CreateFileW(nativePath(strPath).c_str(), 0,
                                     FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                     nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (hFile == INVALID_HANDLE_VALUE)
        return false;
    const bool bKnown = stateOf(hFile, pState);
    CloseHandle(hFile);
    return bKnown;
}

bool Platform::stateOfHandle(int nHandle, SFileState *pState)
{
    return stateOf(handleOf(nHandle), pState);
}

bool Platform::isMadeUp(int)
{
    return false;
}

int Platform::openFile(const QString &strPath, FileAccess access)
{
    const DWORD nAccess = access == FileAccess::Read ? GENERIC_READ
        : access == FileAccess::Write                ? GENERIC_WRITE
                                                     : GENERIC_READ | GENERIC_WRITE;
    return descriptorOf(strPath, nAccess, OPEN_EXISTING);
}

int Platform::createFile(const QString &strPath, FilePrivacy)
{
    return descriptorOf(strPath, GENERIC_READ | GENERIC_WRITE, CREATE_NEW);
}

bool Platform::closeFile(int nHandle)
{
    return _close(nHandle) == 0;
}

qint64 Platform::readSome(int nHandle, char *pBuffer, qint64 nSize)
{
    return _read(nHandle, pBuffer, unsigned(qMin(nSize, qint64(0x7fffffff))));
}

QByteArray Platform::pathForLibrary(const QString &strPath)
{
    return "\\\\?\\" + QDir::toNativeSeparators(strPath).toUtf8();
}

QByteArray Platform::bytesOfPath(const QString &strPath)
{
    return strPath.toUtf8();
}

QString Platform::pathOfBytes(const QByteArray &path)
{
    return QString::fromUtf8(path);
}

QString Platform::errorText()
{
    return QString::fromLocal8Bit(std::strerror(errno));
}

qint64 Platform::availableMemory()
{
    MEMORYSTATUSEX status = {};
    status.dwLength = sizeof status;
    return GlobalMemoryStatusEx(&status) ? qint64(status.ullAvailPhys) : -1;
}
