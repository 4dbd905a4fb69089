#pragma once

#include <QByteArray>
#include <QFile>

#include <sys/resource.h>
#include <unistd.h>

// Limits the address space that this process may still take, in bytes, while it lives. Useless with
// the address sanitizer, which takes terabytes of it.
class CMemoryLimit
{
public:
    explicit CMemoryLimit(qint64 nMore)
    {
        getrlimit(RLIMIT_AS, &m_before);
        QFile sizes(QStringLiteral("/proc/self/statm"));
        if (!sizes.open(QIODevice::ReadOnly))
            qFatal("no /proc");
        rlimit limit = m_before;
        limit.rlim_cur =
            rlim_t(sizes.readAll().split(' ').first().toLongLong() * sysconf(_SC_PAGESIZE) + nMore);
        setrlimit(RLIMIT_AS, &limit);
    }
    ~CMemoryLimit() { setrlimit(RLIMIT_AS, &m_before); }

private:
    rlimit m_before = {};
};
