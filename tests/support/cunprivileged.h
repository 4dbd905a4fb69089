#pragma once

#include <QtGlobal>

#ifdef Q_OS_LINUX
#include <linux/capability.h>
#include <sys/syscall.h>
#include <unistd.h>
#endif

// While it lives, permissions hold for this thread and for those it starts, even where the user is
// root, who may otherwise read everything (capabilities(7)). On other systems it changes nothing:
// tests that need it skip.
#ifdef Q_OS_LINUX
class CUnprivileged
{
public:
    CUnprivileged()
    {
        if (syscall(SYS_capget, &m_header, m_arrBefore) != 0)
            qFatal("cannot ask for the thread's capabilities");
        __user_cap_data_struct arrWithout[] = {m_arrBefore[0], m_arrBefore[1]};
        arrWithout[0].effective &=
            ~(CAP_TO_MASK(CAP_DAC_OVERRIDE) | CAP_TO_MASK(CAP_DAC_READ_SEARCH));
        set(arrWithout);
    }
    ~CUnprivileged() { set(m_arrBefore); }
    CUnprivileged(const CUnprivileged &) = delete;
    CUnprivileged &operator=(const CUnprivileged &) = delete;

private:
    void set(const __user_cap_data_struct *pData)
    {
        if (syscall(SYS_capset, &m_header, pData) != 0)
            qFatal("cannot change the thread's capabilities");
    }

    __user_cap_header_struct m_header {_LINUX_CAPABILITY_VERSION_3, 0};
    __user_cap_data_struct m_arrBefore[_LINUX_CAPABILITY_U32S_3];
};
#else
class CUnprivileged
{
public:
    CUnprivileged() { } // No warning of a variable that nobody uses.
};
#endif
