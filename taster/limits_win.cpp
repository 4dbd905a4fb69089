#include "taster/limits.h"

#include <qt_windows.h>

namespace {

constexpr LONGLONG g_nUnitsPerMillisecond = 10000; // In units of 100 nanoseconds.
constexpr LONGLONG g_nMilliseconds = 1500;
constexpr SIZE_T g_nMemory = 1024UL * 1024 * 1024;

LONGLONG timeSpent()
{
    FILETIME created;
    FILETIME ended;
    FILETIME kernel;
    FILETIME user;
    if (!GetProcessTimes(GetCurrentProcess(), &created, &ended, &kernel, &user))
        return 0;
    return (LONGLONG(user.dwHighDateTime) << 32) + user.dwLowDateTime;
}

// Makes a job that contains only this process.
HANDLE job()
{
    static const HANDLE s_hJob = [] {
        const HANDLE hJob = CreateJobObjectW(nullptr, nullptr);
        if (hJob)
            AssignProcessToJobObject(hJob, GetCurrentProcess());
        return hJob;
    }();
    return s_hJob;
}

void setLimits(LONGLONG nTime)
{
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION info = {};
    info.BasicLimitInformation.LimitFlags =
        JOB_OBJECT_LIMIT_PROCESS_MEMORY | (nTime > 0 ? JOB_OBJECT_LIMIT_PROCESS_TIME : 0);
    info.BasicLimitInformation.PerProcessUserTimeLimit.QuadPart = nTime;
    info.ProcessMemoryLimit = g_nMemory;
    SetInformationJobObject(job(), JobObjectExtendedLimitInformation, &info, sizeof info);
}

} // namespace

void Limits::atStart()
{
    // Shows no box of the system when the program fails.
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX);
}

void Limits::forOneFile()
{
    setLimits(timeSpent() + g_nMilliseconds * g_nUnitsPerMillisecond);
}

void Limits::forWaiting()
{
    setLimits(0);
}
