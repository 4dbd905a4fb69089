#include "app/filestate.h"
#include "app/platformfiles.h"

#include <QFile>

#include <algorithm>
#include <cerrno>
#include <limits>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>
#ifdef Q_OS_LINUX
#include <linux/magic.h>
#include <sys/vfs.h>
#endif

namespace {

qint64 nanoseconds(const timespec &time)
{
    return qint64(time.tv_sec) * 1000000000 + time.tv_nsec;
}

#ifdef Q_OS_DARWIN
const timespec &modifiedIn(const struct stat &info)
{
    return info.st_mtimespec;
}
const timespec &changedIn(const struct stat &info)
{
    return info.st_ctimespec;
}
#else
const timespec &modifiedIn(const struct stat &info)
{
    return info.st_mtim;
}
const timespec &changedIn(const struct stat &info)
{
    return info.st_ctim;
}
#endif

void copyState(const struct stat &info, SFileState *pState)
{
    pState->bExists = true;
    pState->nDevice = info.st_dev;
    pState->nInode = info.st_ino;
    pState->nSize = info.st_size;
    pState->nModifiedNs = nanoseconds(modifiedIn(info));
    pState->nChangedNs = nanoseconds(changedIn(info));
}

Platform::FileKind kindOfMode(mode_t nMode)
{
    if (S_ISREG(nMode))
        return Platform::FileKind::Regular;
    if (S_ISDIR(nMode))
        return Platform::FileKind::Folder;
    return S_ISFIFO(nMode) || S_ISCHR(nMode) ? Platform::FileKind::Stream
                                             : Platform::FileKind::Other;
}

// The number after a name in /proc/meminfo, in bytes.
qint64 memoryNumber(const QByteArray &table, const char *szName)
{
    const int nStart = table.indexOf(szName);
    if (nStart < 0)
        return -1;
    const int nEnd = table.indexOf("kB", nStart);
    const int nColon = table.indexOf(':', nStart);
    return table.mid(nColon + 1, nEnd - nColon - 1).trimmed().toLongLong() * 1024;
}

// The address space that a limit of the process leaves.
qint64 addressSpaceLeft()
{
    rlimit limit = {};
    if (getrlimit(RLIMIT_AS, &limit) != 0 || limit.rlim_cur == RLIM_INFINITY)
        return std::numeric_limits<qint64>::max();
    QFile sizes(QStringLiteral("/proc/self/statm"));
    if (!sizes.open(QIODevice::ReadOnly))
        return std::numeric_limits<qint64>::max();
    const qint64 nUsed = sizes.readAll().split(' ').first().toLongLong() * sysconf(_SC_PAGESIZE);
    return std::max(qint64(0), qint64(limit.rlim_cur) - nUsed);
}

} // namespace

Platform::FileKind Platform::kindOfPath(const QString &strPath)
{
    struct stat info = {};
    if (stat(QFile::encodeName(strPath).constData(), &info) != 0)
        return FileKind::Missing;
    return kindOfMode(info.st_mode);
}

Platform::FileKind Platform::kindOfHandle(int nHandle)
{
    struct stat info = {};
    return fstat(nHandle, &info) == 0 ? kindOfMode(info.st_mode) : FileKind::Missing;
}

bool Platform::stateOfPath(const QString &strPath, SFileState *pState)
{
    struct stat info = {};
    if (stat(QFile::encodeName(strPath).constData(), &info) != 0)
        return false;
    copyState(info, pState);
    return true;
}

bool Platform::stateOfHandle(int nHandle, SFileState *pState)
{
    struct stat info = {};
    if (fstat(nHandle, &info) != 0)
        return false;
    copyState(info, pState);
    return true;
}

bool Platform::isMadeUp(int nHandle)
{
#ifdef Q_OS_LINUX
    struct statfs info = {};
    if (fstatfs(nHandle, &info) != 0)
        return false;
    for (const auto nMagic : {SYSFS_MAGIC, PROC_SUPER_MAGIC, CGROUP2_SUPER_MAGIC, DEBUGFS_MAGIC})
        if (quint32(info.f_type) == quint32(nMagic))
            return true;
#else
    Q_UNUSED(nHandle)
#endif
    return false;
}

int Platform::openFile(const QString &strPath, FileAccess access)
{
    const int nAccess = access == FileAccess::Read ? O_RDONLY
        : access == FileAccess::Write              ? O_WRONLY
                                                   : O_RDWR;
    int nHandle = -1;
    do {
        nHandle = open(QFile::encodeName(strPath).constData(),
                       nAccess | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    } while (nHandle < 0 && errno == EINTR);
    return nHandle;
}

int Platform::createFile(const QString &strPath, FilePrivacy privacy)
{
    return open(QFile::encodeName(strPath).constData(),
                O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW,
                privacy == FilePrivacy::OnlyMe ? 0600 : 0666);
}

bool Platform::closeFile(int nHandle)
{
    // The file is closed even if the call was interrupted; a second call could close another file
    // with the same number.
    return close(nHandle) == 0 || errno == EINTR;
}

qint64 Platform::readSome(int nHandle, char *pBuffer, qint64 nSize)
{
    ssize_t nRead = -1;
    do {
        nRead = read(nHandle, pBuffer, size_t(nSize));
    } while (nRead < 0 && errno == EINTR);
    return nRead;
}

QByteArray Platform::pathForLibrary(const QString &strPath)
{
    return QFile::encodeName(strPath);
}

QByteArray Platform::bytesOfPath(const QString &strPath)
{
    return QFile::encodeName(strPath);
}

QString Platform::pathOfBytes(const QByteArray &path)
{
    return QFile::decodeName(path);
}

QString Platform::errorText()
{
    return qt_error_string(errno);
}

qint64 Platform::availableMemory()
{
    QFile table(QStringLiteral("/proc/meminfo"));
    const qint64 nMachine =
        table.open(QIODevice::ReadOnly) ? memoryNumber(table.readAll(), "MemAvailable") : -1;
    const qint64 nProcess = addressSpaceLeft();
    if (nMachine < 0)
        return nProcess == std::numeric_limits<qint64>::max() ? -1 : nProcess;
    return std::min(nMachine, nProcess);
}
