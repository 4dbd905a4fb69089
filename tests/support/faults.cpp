#include "support/faults.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>

#include <sys/syscall.h>
#include <unistd.h>

namespace {

using Faults::Call;

Call g_call = Call::None;
QByteArray g_path;
qint64 g_nLeft = 0;
int g_nError = 0;
int g_nHits = 0;
int g_nTimes = 0;

bool concerns(Call call, int nHandle)
{
    if (g_call != call || g_nHits >= g_nTimes)
        return false;
    char arrPath[4096];
    const QByteArray link = QByteArray("/proc/self/fd/").append(QByteArray::number(nHandle));
    const ssize_t nLength = readlink(link.constData(), arrPath, sizeof arrPath);
    if (nLength <= 0)
        return false;
    return QByteArray(arrPath, int(nLength)).startsWith(g_path);
}

bool fails(qint64 nWanted = 1)
{
    g_nLeft -= nWanted;
    if (g_nLeft >= 0)
        return false;
    ++g_nHits;
    errno = g_nError;
    return true;
}

} // namespace

Faults::CFault::CFault(Call call, const QByteArray &path, qint64 nBehind, int nError, int nTimes)
{
    g_nTimes = nTimes;
    g_call = call;
    g_path = path;
    g_nLeft = nBehind;
    g_nError = nError;
    g_nHits = 0;
}

Faults::CFault::~CFault()
{
    g_call = Call::None;
}

int Faults::CFault::hits() const
{
    return g_nHits;
}

extern "C" {

ssize_t read(int nHandle, void *pBuffer, size_t nSize)
{
    if (concerns(Call::Read, nHandle)) {
        // Fails like a bad block: the bytes before it are read.
        if (g_nLeft <= 0 && fails())
            return -1;
        nSize = std::min(nSize, size_t(g_nLeft));
        const ssize_t nRead = syscall(SYS_read, nHandle, pBuffer, nSize);
        g_nLeft -= std::max(ssize_t(0), nRead);
        return nRead;
    }
    return syscall(SYS_read, nHandle, pBuffer, nSize);
}

ssize_t write(int nHandle, const void *pBuffer, size_t nSize)
{
    if (concerns(Call::Write, nHandle)) {
        if (g_nLeft <= 0 && fails())
            return -1;
        nSize = std::min(nSize, size_t(g_nLeft));
        g_nLeft -= qint64(nSize);
    }
    return syscall(SYS_write, nHandle, pBuffer, nSize);
}

int fsync(int nHandle)
{
    if (concerns(Call::Sync, nHandle) && fails())
        return -1;
    return int(syscall(SYS_fsync, nHandle));
}

int rename(const char *szFrom, const char *szTo) noexcept
{
    if (g_call == Call::Rename && QByteArray(szTo).startsWith(g_path) && fails())
        return -1;
    return int(syscall(SYS_rename, szFrom, szTo));
}

int close(int nHandle)
{
    const bool bFails = concerns(Call::Close, nHandle) && fails();
    const int nResult = int(syscall(SYS_close, nHandle));
    if (!bFails)
        return nResult;
    errno = g_nError;
    return -1;
}
}
