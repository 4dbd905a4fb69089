#include "editor/ctextloader.h"

#include <QThreadPool>

#include <mutex>

// Shared by both threads. A standard mutex, because ThreadSanitizer does not know Qt's.
struct CTextLoader::SLink
{
    std::mutex mutex;
    CTextLoader *pLoader = nullptr; // Null when the loader is gone.

    bool isWanted()
    {
        const std::lock_guard<std::mutex> locker(mutex);
        return pLoader;
    }
    template<class Call> void post(const Call &call)
    {
        const std::lock_guard<std::mutex> locker(mutex);
        if (pLoader)
            QMetaObject::invokeMethod(
                pLoader, [p = pLoader, call] { call(p); }, Qt::QueuedConnection);
    }
};

CTextLoader::CTextLoader(QObject *pParent) : QObject(pParent), m_pLink(std::make_shared<SLink>())
{
    m_pLink->pLoader = this;
}

CTextLoader::~CTextLoader()
{
    const std::lock_guard<std::mutex> locker(m_pLink->mutex);
    m_pLink->pLoader = nullptr;
}

// Uses the global pool, for which the application waits when it ends.
void CTextLoader::start(const STextRequest &request)
{
    SArrivalSteps steps;
    steps.progress = [pLink = m_pLink](qint64 nDone, qint64 nAll) {
        pLink->post([nDone, nAll](CTextLoader *p) { emit p->progressed(nDone, nAll); });
        return pLink->isWanted();
    };
    steps.firstSlice = [pLink = m_pLink](const QString &strSlice) {
        pLink->post([strSlice](CTextLoader *p) { emit p->firstSliceReady(strSlice); });
    };
    QThreadPool::globalInstance()->start([pLink = m_pLink, request, steps] {
        const auto pText = std::make_shared<SArrivedText>(readInSlices(request, steps));
        pLink->post([pText](CTextLoader *p) { emit p->ready(pText); });
    });
}
