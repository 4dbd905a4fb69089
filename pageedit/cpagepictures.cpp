#include "pageedit/cpagepictures.h"

#include "pageedit/cdlgpicture.h"
#include "pageedit/cpicturemouse.h"
#include "pageedit/fileaddress.h"
#include "pageedit/pagecommands.h"
#include "pageedit/picturefiles.h"
#include "web/ceditwebview.h"

#include <QBuffer>
#include <QDropEvent>
#include <QFileInfo>
#include <QImage>
#include <QMimeData>
#include <QTextDocumentFragment>
#include <QTimer>
#include <QUrl>

namespace {

QVariantMap asArguments(const SPicture &picture)
{
    return {{QStringLiteral("src"), picture.strAddress},
            {QStringLiteral("alt"), picture.strAlt},
            {QStringLiteral("width"), picture.nWidth},
            {QStringLiteral("height"), picture.nHeight}};
}

QStringList filesOf(const QMimeData *pData)
{
    QStringList lst;
    const QList<QUrl> lstUrls = pData->urls();
    for (const QUrl &url : lstUrls)
        if (url.isLocalFile())
            lst.append(url.toLocalFile());
    return lst;
}

bool isDrop(QEvent::Type type)
{
    return type == QEvent::DragEnter || type == QEvent::DragMove || type == QEvent::Drop;
}

} // namespace

CPagePictures::CPagePictures(CEditWebView *pView) : QObject(pView), m_pView(pView)
{
    connect(new CPictureMouse(pView), &CPictureMouse::opened, this, &CPagePictures::ask);
    pView->setPasteTaker([this](const QMimeData *pData) { return paste(pData); });
    pView->installEventFilter(this);
}

CPagePictures *CPagePictures::of(const QObject *pView)
{
    return pView ? pView->findChild<CPagePictures *>(QString(), Qt::FindDirectChildrenOnly)
                 : nullptr;
}

bool CPagePictures::hasFile() const
{
    if (m_pView->filePath().isEmpty())
        emit m_pView->statusMessage(
            tr("Save the page first: addresses of pictures lead from its file."));
    return !m_pView->filePath().isEmpty();
}

bool CPagePictures::takesDrop(const QMimeData *pData) const
{
    const QStringList lstFiles = filesOf(pData);
    for (const QString &strFile : lstFiles)
        if (!isPictureFile(strFile) || !QFileInfo(strFile).isFile())
            return false;
    return !lstFiles.isEmpty() && isOwnPageEdited(m_pView);
}

bool CPagePictures::takesPaste(const QMimeData *pData) const
{
    if (!pData || !pData->hasImage() || !isOwnPageEdited(m_pView))
        return false;
    // A browser adds a fragment that holds only the picture.
    const QString strHtml = pData->html();
    QString strText =
        strHtml.isEmpty() ? pData->text() : QTextDocumentFragment::fromHtml(strHtml).toPlainText();
    return strText.remove(QChar::ObjectReplacementCharacter).trimmed().isEmpty();
}

void CPagePictures::ask()
{
    if (!isOwnPageEdited(m_pView) || !hasFile())
        return;
    const QVariantMap now = askPage(m_pView, QStringLiteral("picture")).toMap();
    const bool bChange = now.value(QStringLiteral("present")).toBool();
    CDlgPicture dialog(m_pView->filePath(), m_pView->window());
    if (bChange)
        dialog.setPicture({now.value(QStringLiteral("src")).toString(),
                           now.value(QStringLiteral("alt")).toString(),
                           now.value(QStringLiteral("width")).toInt(),
                           now.value(QStringLiteral("height")).toInt()});
    SPicture picture;
    if (!run(&dialog, &picture))
        return;
    if (bChange)
        runPageCommand(m_pView, QStringLiteral("changePicture"), asArguments(picture));
    else
        insert(picture);
}

// False when it was cancelled, or the file could not be copied.
bool CPagePictures::run(CDlgPicture *pDialog, SPicture *pPicture)
{
    const bool bOk = pDialog->exec() == QDialog::Accepted;
    m_pView->setFocus();
    if (!bOk)
        return false;
    *pPicture = pDialog->picture();
    if (!pDialog->isCopyWanted())
        return true;
    QString strError;
    const QString strCopy = copyBeside(m_pView->filePath(), pDialog->file(), &strError);
    if (strCopy.isEmpty()) {
        emit m_pView->statusMessage(tr("The picture could not be copied: %1").arg(strError));
        return false;
    }
    pPicture->strAddress = fileAddress(strCopy, m_pView->filePath());
    return true;
}

void CPagePictures::insert(const SPicture &picture)
{
    runPageCommand(m_pView, QStringLiteral("insertPicture"), asArguments(picture));
}

void CPagePictures::insertFiles(const QStringList &lstFiles)
{
    if (!isOwnPageEdited(m_pView) || !hasFile())
        return;
    for (const QString &strFile : lstFiles) {
        CDlgPicture dialog(m_pView->filePath(), m_pView->window());
        dialog.setFile(strFile);
        SPicture picture;
        if (!run(&dialog, &picture))
            return;
        insert(picture);
    }
}

bool CPagePictures::paste(const QMimeData *pData)
{
    if (!takesPaste(pData))
        return false;
    if (!hasFile())
        return true;
    const auto image = pData->imageData().value<QImage>();
    QBuffer png;
    QString strError;
    png.open(QIODevice::WriteOnly);
    if (image.isNull() || !image.save(&png, "PNG"))
        return false;
    const QString strFile = storeNew(m_pView->filePath(), png.data(), &strError);
    if (strFile.isEmpty()) {
        emit m_pView->statusMessage(tr("The picture could not be stored: %1").arg(strError));
        return true;
    }
    insertFiles({strFile});
    return true;
}

void CPagePictures::drop(const QStringList &lstFiles, const QPoint &point)
{
    askPage(m_pView, QStringLiteral("caretAtPoint"), pagePoint(m_pView, point));
    m_pView->setFocus();
    insertFiles(lstFiles);
}

bool CPagePictures::eventFilter(QObject *pObject, QEvent *pEvent)
{
    if (!isDrop(pEvent->type()))
        return QObject::eventFilter(pObject, pEvent);
    // The common base of the three classes of drop events.
    auto *pDrop = static_cast<QDropEvent *>(pEvent);
    if (!takesDrop(pDrop->mimeData()))
        return false;
    pDrop->setDropAction(Qt::CopyAction);
    pDrop->accept();
    if (pEvent->type() == QEvent::Drop) {
        // Runs later, because the source of the drag waits for its end.
        QTimer::singleShot(0, this,
                           [this, lstFiles = filesOf(pDrop->mimeData()), point = pDrop->pos()] {
                               drop(lstFiles, point);
                           });
    }
    return true;
}
