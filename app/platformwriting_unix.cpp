#include "app/platformfiles.h"

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#ifdef Q_OS_LINUX
#include <sys/xattr.h>
#endif

namespace {

const mode_t g_nPermissions = 07777;

// With the reader at the other end of a pipe or terminal.
class CPatience
{
public:
    explicit CPatience(qint64 nBytes) : m_nAll(s_nPatience + nBytes / 1000)
    {
        m_sinceStart.start();
        m_sinceLast.start();
    }

    void renew() { m_sinceLast.start(); }

    // False, with the error set, when it took nothing for too long, or all of it takes too long.
    bool waitFor(int nHandle) const
    {
        const qint64 nLeft =
            std::min(s_nPatience - m_sinceLast.elapsed(), m_nAll - m_sinceStart.elapsed());
        pollfd wanted = {nHandle, POLLOUT, 0};
        if (nLeft > 0 && poll(&wanted, 1, int(nLeft)) != 0)
            return true;
        errno = ETIMEDOUT;
        return false;
    }

private:
    static constexpr qint64 s_nPatience = 1500; // Milliseconds.

    qint64 m_nAll; // A second more for each megabyte.
    QElapsedTimer m_sinceStart;
    QElapsedTimer m_sinceLast;
};

bool isOwnMode(int nHandle, mode_t nMode)
{
    struct stat info = {};
    return fstat(nHandle, &info) == 0 && (info.st_mode & g_nPermissions) == nMode;
}

bool carryOwner(const struct stat &old, int nHandle)
{
    struct stat now = {};
    if (fstat(nHandle, &now) != 0)
        return false;
    return (old.st_uid == now.st_uid && old.st_gid == now.st_gid)
        || fchown(nHandle, old.st_uid, old.st_gid) == 0;
}

#ifdef Q_OS_LINUX
const char g_szCapabilities[] = "security.capability";

// Signatures of the content, which is about to be another.
bool isOfContent(const QByteArray &name)
{
    return name == "security.ima" || name == "security.evm";
}

// The call tells the size first. Null where it fails, also because another program changed it in
// between.
template<class Call> QByteArray attributeBytes(const Call &call)
{
    const ssize_t nSize = call(nullptr, 0);
    if (nSize <= 0)
        return nSize == 0 ? QByteArray("") : QByteArray();
    QByteArray bytes(int(nSize), '\0');
    const ssize_t nDone = call(bytes.data(), size_t(nSize));
    return nDone < 0 ? QByteArray() : bytes.left(int(nDone));
}

QByteArrayList namesIn(const QByteArray &list)
{
    QByteArrayList lstNames = list.split('\0');
    lstNames.removeAll(QByteArray());
    return lstNames;
}

QByteArray attributeOf(int nHandle, const char *szName)
{
    return attributeBytes([&](char *p, size_t n) { return fgetxattr(nHandle, szName, p, n); });
}

bool carryAttributes(const char *szPath, int nHandle)
{
    const QByteArrayList lstOld =
        namesIn(attributeBytes([&](char *p, size_t n) { return listxattr(szPath, p, n); }));
    const QByteArrayList lstNew =
        namesIn(attributeBytes([&](char *p, size_t n) { return flistxattr(nHandle, p, n); }));
    // What the new file has from its folder may let in others.
    for (const QByteArray &name : lstNew) {
        if (!lstOld.contains(name) && fremovexattr(nHandle, name.constData()) != 0)
            return false;
    }
    for (const QByteArray &name : lstOld) {
        const char *szName = name.constData();
        const QByteArray value =
            attributeBytes([&](char *p, size_t n) { return getxattr(szPath, szName, p, n); });
        if (value.isNull())
            return false;
        const bool bSame = lstNew.contains(name) && attributeOf(nHandle, szName) == value;
        if (!bSame && !isOfContent(name)
            && fsetxattr(nHandle, szName, value.constData(), size_t(value.size()), 0) != 0)
            return false;
    }
    return true;
}
#else
bool carryAttributes(const char *, int)
{
    return true;
}
#endif

} // namespace

bool Platform::mayWrite(const QString &strPath)
{
    return access(QFile::encodeName(strPath).constData(), W_OK) == 0;
}

bool Platform::writeBytes(int nHandle, const char *pData, qint64 nSize)
{
    const qint64 nAtOnce = 1 << 30; // The system takes less than 2^31.
    CPatience patience(nSize);
    while (nSize > 0) {
        const ssize_t nWritten = write(nHandle, pData, size_t(std::min(nSize, nAtOnce)));
        if (nWritten > 0) {
            pData += nWritten;
            nSize -= nWritten;
            patience.renew();
        } else if (nWritten == 0) {
            errno = ENOSPC;
            return false;
        } else if (errno == EAGAIN) {
            if (!patience.waitFor(nHandle))
                return false;
        } else if (errno != EINTR) {
            return false;
        }
    }
    return true;
}

bool Platform::moveTo(int nHandle, qint64 nPosition)
{
    return lseek(nHandle, off_t(nPosition), SEEK_SET) == off_t(nPosition);
}

bool Platform::resizeFile(int nHandle, qint64 nSize)
{
    return ftruncate(nHandle, off_t(nSize)) == 0;
}

bool Platform::makeHole(int nHandle, qint64 nPosition, qint64 nSize)
{
#ifdef Q_OS_LINUX
    return fallocate(nHandle, FALLOC_FL_PUNCH_HOLE | FALLOC_FL_KEEP_SIZE, nPosition, nSize) == 0;
#else
    Q_UNUSED(nHandle)
    Q_UNUSED(nPosition)
    Q_UNUSED(nSize)
    return false;
#endif
}

bool Platform::syncFile(int nHandle)
{
    return fsync(nHandle) == 0 || errno == EINVAL || errno == EROFS;
}

bool Platform::syncFolder(const QString &strFolder)
{
    const int nHandle =
        open(QFile::encodeName(strFolder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (nHandle < 0)
        return errno == EACCES; // May be written, not listed: there is no other way.
    const bool bDone = syncFile(nHandle);
    const int nError = errno;
    close(nHandle);
    errno = nError;
    return bDone;
}

bool Platform::renameFile(const QString &strFrom, const QString &strTo)
{
    return rename(QFile::encodeName(strFrom).constData(), QFile::encodeName(strTo).constData())
        == 0;
}

bool Platform::removeFile(const QString &strPath)
{
    return unlink(QFile::encodeName(strPath).constData()) == 0;
}

bool Platform::carryOver(const QString &strPath, int nHandle)
{
    const QByteArray path = QFile::encodeName(strPath);
    struct stat old = {};
    if (stat(path.constData(), &old) != 0)
        return false;
    const mode_t nMode = old.st_mode & g_nPermissions;
    // In this order: a new owner takes set-id bits away, an access list the permissions.
    return carryOwner(old, nHandle) && carryAttributes(path.constData(), nHandle)
        && fchmod(nHandle, nMode) == 0 && isOwnMode(nHandle, nMode);
}

Platform::SPrivileges Platform::privilegesOf(int nHandle)
{
    SPrivileges privileges;
    struct stat info = {};
    if (fstat(nHandle, &info) == 0)
        privileges.nMode = info.st_mode & g_nPermissions;
#ifdef Q_OS_LINUX
    privileges.capabilities = attributeOf(nHandle, g_szCapabilities);
#endif
    return privileges;
}

// Where only the administrator may give them, they stay away: narrower than before, never wider.
void Platform::restorePrivileges(int nHandle, const SPrivileges &privileges)
{
    if (!isOwnMode(nHandle, privileges.nMode) && fchmod(nHandle, privileges.nMode) != 0)
        return;
#ifdef Q_OS_LINUX
    const QByteArray &value = privileges.capabilities;
    if (!value.isEmpty() && attributeOf(nHandle, g_szCapabilities) != value)
        fsetxattr(nHandle, g_szCapabilities, value.constData(), size_t(value.size()), 0);
#endif
}

bool Platform::isFolderClosed()
{
    return errno == EACCES || errno == EPERM || errno == EROFS || errno == ENAMETOOLONG
        || errno == EBUSY || errno == ETXTBSY;
}

Platform::FileLock Platform::lockFile(int nHandle)
{
    if (flock(nHandle, LOCK_EX | LOCK_NB) == 0)
        return FileLock::Mine;
    return errno == EWOULDBLOCK ? FileLock::AnothersNow : FileLock::Unknown;
}

void Platform::surviveFailingWrites()
{
    for (const int nSignal : {SIGPIPE, SIGXFSZ}) {
        struct sigaction now = {};
        // A handler that somebody has set is left to him.
        if (sigaction(nSignal, nullptr, &now) == 0 && now.sa_handler == SIG_DFL)
            std::signal(nSignal, SIG_IGN);
    }
}
