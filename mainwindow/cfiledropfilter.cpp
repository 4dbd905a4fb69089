#include "mainwindow/cfiledropfilter.h"

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QTimer>
#include <QUrl>
#include <QWidget>

CFileDropFilter::CFileDropFilter(QWidget *pWindow) : QObject(pWindow), m_pWindow(pWindow)
{
    qApp->installEventFilter(this);
}

QStringList CFileDropFilter::localFiles(const QMimeData *pData)
{
    QStringList lstFiles;
    if (!pData)
        return lstFiles;
    const QList<QUrl> lstUrls = pData->urls();
    for (const QUrl &url : lstUrls)
        if (url.isLocalFile())
            lstFiles.append(url.toLocalFile());
    return lstFiles;
}

bool CFileDropFilter::eventFilter(QObject *pObject, QEvent *pEvent)
{
    const QEvent::Type type = pEvent->type();
    if (type != QEvent::DragEnter && type != QEvent::DragMove && type != QEvent::Drop)
        return false;
    const auto *pWidget = qobject_cast<QWidget *>(pObject);
    if (!pWidget || pWidget->window() != m_pWindow)
        return false;
    // The common base of the three classes of drop events.
    auto *pDrop = static_cast<QDropEvent *>(pEvent);
    const QStringList lstFiles = localFiles(pDrop->mimeData());
    if (lstFiles.isEmpty() || (m_isTaken && m_isTaken(pWidget, pDrop->mimeData())))
        return false;
    pDrop->setDropAction(Qt::CopyAction);
    pDrop->accept();
    if (type == QEvent::Drop) {
        // Queued: opening may ask the user something while the source of the drag waits.
        QTimer::singleShot(0, this, [this, lstFiles] { emit filesDropped(lstFiles); });
    }
    return true;
}
