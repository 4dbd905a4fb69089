#include "mainwindow/carrivals.h"

#include "app/plaintext.h"
#include "document/notice.h"
#include "mainwindow/ctabwidget.h"
#include "mainwindow/cworkprogress.h"
#include "mainwindow/mainwindow.h"

#include <QFileInfo>
#include <QTimer>

CArrivals::CArrivals(MainWindow *pWindow, CTabWidget *pTabs, std::function<void(CDocument *)> close)
    : QObject(pWindow), m_pWindow(pWindow), m_pTabs(pTabs), m_close(std::move(close))
{
}

void CArrivals::add(CDocument *pDocument)
{
    connect(
        pDocument, &CDocument::arrivingChanged, this, [=] { onChanged(pDocument); });
    connect(
        pDocument, &CDocument::arrivalProgressed, this,
        [=](qint64 nDone, qint64 nAll) {
            if (m_mapWorks.contains(pDocument))
                m_pWindow->workProgress().advance(m_mapWorks.value(pDocument), nDone, nAll);
        });
    connect(
        pDocument, &CDocument::arrivalFailed, this,
        [=](const QString &strReason, bool bPartial) { onFailed(pDocument, strReason, bPartial); });
    connect(pDocument, &QObject::destroyed, this,
            [this](QObject *pGone) { m_mapWorks.remove(pGone); });
}

void CArrivals::onChanged(CDocument *pDocument)
{
    const int nIndex = m_pTabs->indexOf(pDocument->widget());
    if (nIndex >= 0)
        m_pTabs->setPlainTabText(nIndex, visibleName(pDocument->title()));
    if (!pDocument->isArriving()) {
        m_pWindow->workProgress().end(m_mapWorks.take(pDocument));
    } else if (!m_mapWorks.contains(pDocument)) {
        const QString strName = visibleName(QFileInfo(pDocument->path()).fileName());
        const int nWork = m_pWindow->workProgress().begin(pDocument, tr("Loading %1").arg(strName),
                                                          [this, pDocument] { stop(pDocument); });
        m_mapWorks.insert(pDocument, nWork);
    }
    m_pWindow->onModifiedChanged();
}

// Closes the document, because only a part of its text has arrived.
void CArrivals::stop(CDocument *pDocument)
{
    if (!pDocument->stopArriving())
        m_close(pDocument);
}

// Uses the bar, because a box would interrupt what the user is doing by now.
void CArrivals::onFailed(CDocument *pDocument, const QString &strReason, bool bPartial)
{
    SNotice notice;
    notice.strText =
        tr("%1 could not be loaded: %2").arg(visibleName(pDocument->path()), strReason);
    if (!bPartial) {
        pDocument->setNotice(CDocument::Topic::Loading, notice);
        return;
    }
    m_pWindow->documents().recovery().offer(notice);
    // Queued, because the document is still emitting a signal.
    QTimer::singleShot(0, pDocument, [this, pDocument] { m_close(pDocument); });
}
