#pragma once

#include <QObject>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

// Runs one job at a time on a thread of its own; a new job replaces the one before. The thread
// begins with the first job. GUI thread only, except for the jobs themselves.
class CBackgroundJob : public QObject
{
    Q_OBJECT

public:
    using Cancelled = std::function<bool()>;
    using Finish = std::function<void()>;
    // A job runs on the thread. If it returns a function, that runs on the GUI thread afterwards,
    // unless the job was cancelled. The job has to ask now and then whether it was cancelled, and
    // must not touch anything of the GUI thread.
    using Work = std::function<Finish(const Cancelled &)>;

    explicit CBackgroundJob(QObject *pParent = nullptr);
    // Cancels and waits.
    ~CBackgroundJob() override;

    void start(const Work &work);
    void cancel();

private:
    void run();
    void deliver();
    bool isCurrent(quint64 nJob) const;

    // The standard library's mutex, because ThreadSanitizer understands it.
    mutable std::mutex m_mutex;
    std::condition_variable m_wake;
    std::thread m_thread;
    Work m_work;
    Finish m_finish;
    quint64 m_nJob = 0; // The number of the job that was last started or cancelled.
    quint64 m_nFinished = 0; // The number of the job that m_finish belongs to.
    bool m_bEnd = false;
};
