#include "app/filestate.h"
#include "app/platformfiles.h"

#include <QDir>

#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <io.h>
#include <qt_windows.h>
#include <sys/stat.h>

namespace {

// The buffer of the string stays with it.
const wchar_t *wide(const QString &strText)
{
    return reinterpret_cast<const wchar_t *>(strText.utf16());
}

HANDLE handleOf(int nHandle)
{
    return reinterpret_cast<HANDLE>(_get_osfhandle(nHandle));
}

quint64 joined(DWORD nHigh, DWORD nLow)
{
    return quint64(nHigh) << 32 | nLow;
}

// From hundreds of nanoseconds since 1601.
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
    const QString strNative = QDir::toNativeSeparators(strPath);
    const DWORD nAttributes = GetFileAttributesW(wide(strNative));
    if (nAttributes == INVALID_FILE_ATTRIBUTES)
        return FileKind::Missing;
    if (nAttributes & FILE_ATTRIBUTE_DIRECTORY)
        return FileKind::Folder;
    return nAttributes & FILE_ATTRIBUTE_DEVICE ? FileKind::Other : FileKind::Regular;
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
    const QString strNative = QDir::toNativeSeparators(strPath);
    const HANDLE hFile =
        CreateFileW(wide(strNative), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
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
    const int nAccess = access == FileAccess::Read ? _O_RDONLY
        : access == FileAccess::Write              ? _O_WRONLY
                                                   : _O_RDWR;
    const QString strNative = QDir::toNativeSeparators(strPath);
    return _wopen(wide(strNative), nAccess | _O_BINARY | _O_NOINHERIT);
}

int Platform::createFile(const QString &strPath, FilePrivacy)
{
    const QString strNative = QDir::toNativeSeparators(strPath);
    return _wopen(wide(strNative), _O_RDWR | _O_CREAT | _O_EXCL | _O_BINARY | _O_NOINHERIT,
                  _S_IREAD | _S_IWRITE);
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
