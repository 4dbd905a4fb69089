#include "app/platform.h"

#include <QElapsedTimer>
#include <QFile>
#include <QSharedMemory>

#include <cerrno>
#include <ctime>

#include <sys/ipc.h>
#include <sys/sem.h>
#include <sys/shm.h>
#include <unistd.h>

namespace {

using Platform::SegmentOwner;

// Permission to read or write for others: the paths in the mailbox are private.
const mode_t g_nOthersMay = 066;

// QSharedMemory and the QSystemSemaphore in it make their keys of these files.
key_t keyOfFile(const QString &strFile)
{
    return ftok(QFile::encodeName(strFile).constData(), 'Q');
}

key_t segmentKey(const QString &strKey)
{
    return keyOfFile(QSharedMemory(strKey).nativeKey());
}

key_t lockKey(const QString &strKey)
{
    return keyOfFile(QSharedMemory(strKey).nativeKey().replace(QLatin1String("qipc_sharedmemory_"),
                                                               QLatin1String("qipc_systemsem_")));
}

SegmentOwner ownerBy(const ipc_perm &permissions)
{
    const bool bMine = permissions.uid == geteuid() && permissions.cuid == geteuid();
    return bMine && (permissions.mode & g_nOthersMay) == 0 ? SegmentOwner::Me
                                                           : SegmentOwner::Others;
}

SegmentOwner ownerOfMemory(key_t nKey)
{
    const int nId = nKey == -1 ? -1 : shmget(nKey, 0, 0);
    if (nId < 0)
        return SegmentOwner::Nobody;
    shmid_ds info = {};
    return shmctl(nId, IPC_STAT, &info) == 0 ? ownerBy(info.shm_perm) : SegmentOwner::Others;
}

// semctl() leaves the declaration of this union to its callers.
union UArgument {
    int nValue;
    semid_ds *pInfo;
};

SegmentOwner ownerOfLock(key_t nKey)
{
    const int nId = nKey == -1 ? -1 : semget(nKey, 0, 0);
    if (nId < 0)
        return SegmentOwner::Nobody;
    semid_ds info = {};
    UArgument argument = {};
    argument.pInfo = &info;
    return semctl(nId, 0, IPC_STAT, argument) == 0 ? ownerBy(info.sem_perm) : SegmentOwner::Others;
}

// If it was removed, for example by an administrator, a new one is made.
int lockOf(const QString &strKey)
{
    const key_t nKey = lockKey(strKey);
    const int nId = nKey == -1 ? -1 : semget(nKey, 0, 0);
    if (nId >= 0 || nKey == -1)
        return nId;
    const int nNew = semget(nKey, 1, 0600 | IPC_CREAT | IPC_EXCL);
    UArgument argument = {};
    argument.nValue = 1;
    if (nNew >= 0)
        semctl(nNew, 0, SETVAL, argument);
    return nNew;
}

sembuf step(short nStep)
{
    sembuf operation = {};
    operation.sem_op = nStep;
    operation.sem_flg = SEM_UNDO; // The end of the process gives it back.
    return operation;
}

} // namespace

Platform::SegmentOwner Platform::ownerOfSegment(const QString &strKey)
{
    const SegmentOwner memory = ownerOfMemory(segmentKey(strKey));
    const SegmentOwner lock = ownerOfLock(lockKey(strKey));
    if (memory == SegmentOwner::Others || lock == SegmentOwner::Others)
        return SegmentOwner::Others;
    return memory == SegmentOwner::Nobody ? lock : memory;
}

bool Platform::lockSegment(const QString &strKey, int nMilliseconds)
{
    QElapsedTimer timer;
    timer.start();
    for (;;) {
        const qint64 nLeft = qMax(qint64(0), nMilliseconds - timer.elapsed());
        const timespec wait = {time_t(nLeft / 1000), long(nLeft % 1000) * 1000000};
        sembuf operation = step(-1);
        const int nId = lockOf(strKey);
        if (nId < 0)
            return false;
        if (semtimedop(nId, &operation, 1, &wait) == 0)
            return true;
        // Interrupted, or removed meanwhile.
        if ((errno != EINTR && errno != EIDRM && errno != EINVAL) || nLeft == 0)
            return false;
    }
}

void Platform::unlockSegment(const QString &strKey)
{
    sembuf operation = step(1);
    semop(lockOf(strKey), &operation, 1);
}

void Platform::releaseDeadSegment(const QString &strKey)
{
    // A System V segment outlives a crash; the last one to detach makes the kernel free it.
    QSharedMemory probe(strKey);
    if (probe.attach(QSharedMemory::ReadOnly))
        probe.detach();
}
