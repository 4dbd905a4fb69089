#include "editor/cbackgroundjob.h"

#include <utility>

CBackgroundJob::CBackgroundJob(QObject *pParent) : QObject(pParent) { }

CBackgroundJob::~CBackgroundJob()
{
    {
        const std::lock_guard<std::mutex> locker(m_mutex);
        ++m_nJob;
        m_bEnd = true;
    }
    m_wake.notify_one();
    if (m_thread.joinable())
        m_thread.join();
}

void CBackgroundJob::start(const Work &work)
{
    {
        const std::lock_guard<std::mutex> locker(m_mutex);
        ++m_nJob;
        m_work = work;
    }
    if (!m_thread.joinable())
        m_thread = std::thread([this] { run(); });
    m_wake.notify_one();
}

void CBackgroundJob::cancel()
{
    const std::lock_guard<std::mutex> locker(m_mutex);
    ++m_nJob;
    m_work = nullptr;
}

bool CBackgroundJob::isCurrent(quint64 nJob) const
{
    const std::lock_guard<std::mutex> locker(m_mutex);
    return nJob == m_nJob;
}

void CBackgroundJob::run()
{
    std::unique_lock<std::mutex> locker(m_mutex);
    while (!m_bEnd) {
        if (!m_work) {
            m_wake.wait(locker);
            continue;
        }
        const Work work = std::exchange(m_work, nullptr);
        const quint64 nJob = m_nJob;
        locker.unlock();
        Finish finish = work([this, nJob] { return !isCurrent(nJob); });
        locker.lock();
        m_finish = std::move(finish);
        m_nFinished = nJob;
        QMetaObject::invokeMethod(this, &CBackgroundJob::deliver, Qt::QueuedConnection);
    }
}

void CBackgroundJob::deliver()
{
    Finish finish;
    {
        const std::lock_guard<std::mutex> locker(m_mutex);
        if (m_nFinished != m_nJob)
            return;
        finish = std::exchange(m_finish, nullptr);
    }
    if (finish)
        finish();
}
