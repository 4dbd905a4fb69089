#pragma once

#include <QByteArray>

// Faults of a disk, for all code that runs in this test. A test that lists faults.cpp among its
// sources has its own read(), write(), fsync(), rename() and close(), which the program's
// libraries, linked statically, call in place of the system's.
namespace Faults {

enum class Call { None, Read, Write, Sync, Rename, Close };

// While it lives, the call fails with an error of the device for files whose path begins so, at
// first behind so many bytes (reading and writing) or so many calls that went well.
class CFault
{
public:
    CFault(Call call, const QByteArray &path, qint64 nBehind = 0, int nError = 5 /* EIO */,
           int nTimes = 0x7fffffff);
    ~CFault();
    CFault(const CFault &) = delete;
    CFault &operator=(const CFault &) = delete;

    int hits() const; // Calls that failed.
};

} // namespace Faults
