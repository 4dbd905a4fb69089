#include "taster/limits.h"

#include <csignal>
#include <cstdio>
#include <new>

#include <sys/resource.h>
#include <sys/time.h>
#include <unistd.h>

#ifdef __linux__
#include <sched.h>
#include <sys/prctl.h>
#endif

namespace {

constexpr long g_nMilliseconds = 1500;
constexpr rlim_t g_nStack = 4UL * 1024 * 1024;

// Never sets more than what the user has set.
void limit(int nResource, rlim_t nMost)
{
    rlimit current = {};
    if (getrlimit(nResource, &current) != 0)
        return;
    current.rlim_cur = nMost < current.rlim_max ? nMost : current.rlim_max;
    setrlimit(nResource, &current);
}

#ifndef QUILLAN_SANITIZED
constexpr rlim_t g_nMemory = 1024UL * 1024 * 1024;

// The address space in use; the page engine reserves much that it never uses.
rlim_t addressSpace()
{
    unsigned long nPages = 0;
    if (FILE *pFile = std::fopen("/proc/self/statm", "r")) {
        if (std::fscanf(pFile, "%lu", &nPages) != 1)
            nPages = 0;
        std::fclose(pFile);
    }
    return rlim_t(nPages) * rlim_t(sysconf(_SC_PAGESIZE));
}
#endif

#ifdef __linux__
// Enters an empty network namespace and keeps the user's identity. Some systems do not allow that.
void leaveNetwork()
{
    const unsigned nUser = geteuid();
    if (unshare(CLONE_NEWUSER | CLONE_NEWNET) != 0)
        return;
    if (FILE *pFile = std::fopen("/proc/self/uid_map", "w")) {
        std::fprintf(pFile, "%u %u 1", nUser, nUser);
        std::fclose(pFile);
    }
}
#endif

void setTimer(long nMilliseconds)
{
    const itimerval timer = {{0, 0}, {nMilliseconds / 1000, nMilliseconds % 1000 * 1000}};
    setitimer(ITIMER_PROF, &timer, nullptr); // The signal ends the program.
}

} // namespace

void Limits::atStart()
{
    limit(RLIMIT_CORE, 0);
    std::set_new_handler([] { _exit(g_nOutOfMemory); });
#ifdef __linux__
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    leaveNetwork();
    prctl(PR_SET_DUMPABLE, 0);
#endif
}

void Limits::forOneFile()
{
#ifndef QUILLAN_SANITIZED // A sanitizer's own memory grows with the program's.
    if (const rlim_t nInUse = addressSpace())
        limit(RLIMIT_AS, nInUse + g_nMemory);
#endif
    limit(RLIMIT_STACK, g_nStack);
    setTimer(g_nMilliseconds);
}

void Limits::forWaiting()
{
    setTimer(0);
}
