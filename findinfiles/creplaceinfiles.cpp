#include "findinfiles/creplaceinfiles.h"

CReplaceInFiles::CReplaceInFiles(QObject *pParent) : QObject(pParent) { }

CReplaceInFiles::~CReplaceInFiles()
{
    cancel();
    if (m_pThread) {
        m_pThread->wait();
        delete m_pThread;
    }
}

void CReplaceInFiles::start(const QVector<SFileReplacement> &lstFiles, const QString &strText)
{
    if (m_bRunning)
        return;
    m_bRunning = true;
    m_pCancel = std::make_shared<std::atomic<bool>>(false);
    m_pThread = QThread::create([this, lstFiles, strText, pCancel = m_pCancel] {
        for (const SFileReplacement &file : lstFiles) {
            if (*pCancel)
                break;
            QString strReason;
            CFileReplacer::replace(file, strText, &strReason);
            QMetaObject::invokeMethod(
                this, [=] { emit fileDone(file.strPath, strReason); }, Qt::QueuedConnection);
        }
    });
    // Runs after all that the thread has queued.
    connect(m_pThread, &QThread::finished, this, [this] {
        m_bRunning = false;
        emit finished();
    });
    connect(m_pThread, &QThread::finished, m_pThread, &QObject::deleteLater);
    m_pThread->start();
}

void CReplaceInFiles::cancel()
{
    if (m_pCancel)
        *m_pCancel = true;
}
