#pragma once

#include <QtGlobal>

#include <ctime>

// The time that the processors spend on this process, in milliseconds: what a test may hold against
// a limit, since it tells how much is done, not how busy the machine is.
class CProcessorTime
{
public:
    qint64 elapsed() const { return inMilliseconds(std::clock() - m_start); }
    qint64 restart()
    {
        const std::clock_t start = m_start;
        m_start = std::clock();
        return inMilliseconds(m_start - start);
    }

private:
    static qint64 inMilliseconds(std::clock_t ticks)
    {
        return qint64(ticks) * 1000 / CLOCKS_PER_SEC;
    }

    std::clock_t m_start = std::clock();
};
