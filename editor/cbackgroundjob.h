#pragma once

#include <QObject>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

// One job at a time on a thread of its own; a new job takes the place of the one before. The thread
// is there from the first job on. GUI thread only, but for the jobs themselves.
class CBackgroundJob : public QObject
{
    Q_OBJECT

public:
    using Cancelled = std::function<bool()>;
    using Finish = std::function<void()>;
    // Runs on the thread; what it returns, if anything, runs on the GUI thread afterwards, unless
    // the job was cancelled. It has to ask now and then whether it was, and must not touch what
    // belongs to the GUI thread.
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
    quint64 m_nJob = 0; // Of the last one started or cancelled.
    quint64 m_nFinished = 0; // Whose m_finish is.
    bool m_bEnd = false;
};
