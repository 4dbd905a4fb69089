#include "web/filelock.h"

#include <io.h>
#include <qt_windows.h>

bool lockOpenFile(int nHandle)
{
    // A byte far behind the content, which others may then still read.
    OVERLAPPED where = {};
    where.OffsetHigh = 0x7fffffff;
    return LockFileEx(reinterpret_cast<HANDLE>(_get_osfhandle(nHandle)),
                      LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &where)
        != 0;
}
