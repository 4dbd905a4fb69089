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

namespace {

// Patience with the reader of a pipe or terminal: tells when to give up.
class CPatience
{
public:
    explicit CPatience(qint64 nBytes) : m_nAll(g_nPatience + nBytes / 1000)
    {
        m_sinceStart.start();
        m_sinceLast.start();
    }

    void renew() { m_sinceLast.start(); }

    // Sets the error and gives false when the reader took nothing for too long, or when all of it
    // takes too long.
    bool waitFor(int nHandle) const
    {
        const qint64 nLeft =
            std::min(g_nPatience - m_sinceLast.elapsed(), m_nAll - m_sinceStart.elapsed());
        pollfd wanted = {nHandle, POLLOUT, 0};
        if (nLeft > 0 && poll(&wanted, 1, int(nLeft)) != 0)
            return true;
        errno = ETIMEDOUT;
        return false;
    }

private:
    static constexpr qint64 g_nPatience = 1500; // Milliseconds.

    qint64 m_nAll; // A second more for each megabyte.
    QElapsedTimer m_sinceStart;
    QElapsedTimer m_sinceLast;
};

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
        // The folder may be written but not listed, so it cannot be opened and synced.
        return errno == EACCES;
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
        // Leaves a handler alone that somebody else has set.
        if (sigaction(nSignal, nullptr, &now) == 0 && now.sa_handler == SIG_DFL)
            std::signal(nSignal, SIG_IGN);
    }
}
