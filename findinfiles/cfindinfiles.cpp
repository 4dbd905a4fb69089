#include "findinfiles/cfindinfiles.h"

#include "findinfiles/csearchjob.h"

#include <QDeadlineTimer>
#include <QFileInfo>

#include <algorithm>

namespace {

const int g_nTick = 20; // Milliseconds.
const int g_nBatch = 2000; // Matches.
const int g_nEndLimit = 5000; // Milliseconds.

} // namespace

CFindInFiles::CFindInFiles(QObject *pParent) : QObject(pParent)
{
    m_timer.setInterval(g_nTick);
    connect(&m_timer, &QTimer::timeout, this, &CFindInFiles::onTick);
}

CFindInFiles::~CFindInFiles()
{
    dropJob();
    const QDeadlineTimer deadline(g_nEndLimit);
    for (const QPointer<QThread> &pThread : qAsConst(m_lstThreads))
        if (pThread && pThread->wait(deadline))
            delete pThread;
}

void CFindInFiles::start(const SFindQuery &query)
{
    dropJob();
    m_counts = SFindCounts();
    if (query.strText.isEmpty() || !QFileInfo(query.strFolder).isDir()) {
        emit finished(m_counts);
        return;
    }
    const int nWorkers = qBound(2, QThread::idealThreadCount(), 8);
    m_pJob = std::make_shared<CSearchJob>(query, nWorkers);
    run(m_pJob, &CSearchJob::walk);
    for (int n = 0; n < nWorkers; ++n)
        run(m_pJob, &CSearchJob::work);
    m_timer.start();
}

void CFindInFiles::run(const std::shared_ptr<CSearchJob> &pJob, void (CSearchJob::*pWork)())
{
    QThread *pThread = QThread::create([pJob, pWork] { (pJob.get()->*pWork)(); });
    connect(pThread, &QThread::finished, pThread, &QObject::deleteLater);
    m_lstThreads.append(pThread);
    pThread->start();
}

void CFindInFiles::dropJob()
{
    m_timer.stop();
    if (m_pJob)
        m_pJob->cancel();
    m_pJob.reset();
    m_lstThreads.erase(std::remove(m_lstThreads.begin(), m_lstThreads.end(), nullptr),
                       m_lstThreads.end());
}

void CFindInFiles::cancel()
{
    if (!m_pJob)
        return;
    dropJob();
    m_counts.bCancelled = true;
    emit finished(m_counts);
}

void CFindInFiles::onTick()
{
    const std::shared_ptr<CSearchJob> pJob = m_pJob;
    QVector<SFileMatches> lstFound;
    const bool bMore = pJob->take(g_nBatch, &lstFound, &m_counts);
    if (!lstFound.isEmpty())
        emit found(lstFound);
    if (pJob != m_pJob) // A receiver has ended the search or begun another one.
        return;
    if (bMore) {
        emit progress(m_counts);
        return;
    }
    dropJob();
    emit finished(m_counts);
}
