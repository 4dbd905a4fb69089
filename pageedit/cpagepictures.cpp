#include "pageedit/cpagepictures.h"

#include "pageedit/fileaddress.h"
#include "pageedit/pagecommands.h"
#include "pageedit/picturefiles.h"
#include "web/ceditwebview.h"

#include <QAction>
#include <QBuffer>
#include <QDropEvent>
#include <QFileInfo>
#include <QImage>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QTextDocumentFragment>
#include <QWebFrame>

#include <utility>

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

CPagePictures::CPagePictures(CEditWebView *pView) : QObject(pView), m_pView(pView), m_cursor(pView)
{
    m_timerMeasure.setSingleShot(true);
    m_timerMeasure.setInterval(0);
    connect(&m_timerMeasure, &QTimer::timeout, this, &CPagePictures::measure);
    const QWebPage *pPage = pView->page();
    connect(pPage, &QWebPage::selectionChanged, this, &CPagePictures::measureSoon);
    connect(pPage, &QWebPage::contentsChanged, this, &CPagePictures::measureSoon);
    connect(pPage, &QWebPage::scrollRequested, this, &CPagePictures::measureSoon);
    connect(pPage->mainFrame(), &QWebFrame::contentsSizeChanged, this, &CPagePictures::measureSoon);
    connect(pView, &QWebView::loadFinished, this, &CPagePictures::measureSoon);
    connect(pView, &CEditWebView::painted, this, &CPagePictures::paint);
    pView->setPasteTaker([this](const QMimeData *pData) { return paste(pData); });
    pView->installEventFilter(this);
}

CPagePictures *CPagePictures::of(const QObject *pView)
{
    return pView ? pView->findChild<CPagePictures *>(QString(), Qt::FindDirectChildrenOnly)
                 : nullptr;
}

bool CPagePictures::isReady() const
{
    return m_pView->isBodyEdited() && m_pView->showsOwnFile() && !m_pView->isSourceShown();
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
    return !lstFiles.isEmpty() && isReady();
}

bool CPagePictures::takesPaste(const QMimeData *pData) const
{
    if (!pData || !pData->hasImage() || !isReady())
        return false;
    // A browser adds a fragment that holds the picture alone.
    const QString strHtml = pData->html();
    QString strText =
        strHtml.isEmpty() ? pData->text() : QTextDocumentFragment::fromHtml(strHtml).toPlainText();
    return strText.remove(QChar::ObjectReplacementCharacter).trimmed().isEmpty();
}

void CPagePictures::ask()
{
    if (!isReady() || !hasFile())
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
    if (!isReady() || !hasFile())
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
    askPage(m_pView, QStringLiteral("caretAtPoint"), at(point));
    m_pView->setFocus();
    insertFiles(lstFiles);
}

// A point of the view as the scripts count.
QVariantMap CPagePictures::at(const QPoint &point) const
{
    const qreal dZoom = m_pView->zoomFactor();
    return {{QStringLiteral("x"), point.x() / dZoom}, {QStringLiteral("y"), point.y() / dZoom}};
}

bool CPagePictures::eventFilter(QObject *pObject, QEvent *pEvent)
{
    switch (pEvent->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
        return handleMouse(static_cast<QMouseEvent *>(pEvent));
    case QEvent::Resize:
    case QEvent::Show:
        measureSoon();
        break;
    default:
        break;
    }
    if (!isDrop(pEvent->type()))
        return QObject::eventFilter(pObject, pEvent);
    auto *pDrop = static_cast<QDropEvent *>(pEvent); // The base of all three.
    if (!takesDrop(pDrop->mimeData()))
        return false;
    pDrop->setDropAction(Qt::CopyAction);
    pDrop->accept();
    if (pEvent->type() == QEvent::Drop) {
        // Not inside the drag, whose source waits.
        QTimer::singleShot(0, this,
                           [this, lstFiles = filesOf(pDrop->mimeData()), point = pDrop->pos()] {
                               drop(lstFiles, point);
                           });
    }
    return true;
}

bool CPagePictures::handleMouse(QMouseEvent *pEvent)
{
    if (m_corner != PictureCorner::None) {
        m_rectDrawn = resized(frame(), m_corner, pEvent->pos());
        if (pEvent->type() == QEvent::MouseButtonRelease)
            finishResizing();
        m_pView->update();
        return true;
    }
    if (pEvent->type() == QEvent::MouseMove) {
        const PictureCorner corner = cornerAt(frame(), pEvent->pos());
        if (corner == PictureCorner::None || pEvent->buttons() != Qt::NoButton) {
            m_cursor.giveBack();
            return m_bPictureClicked; // Moving on would select text beside the picture.
        }
        m_cursor.show(cursorOf(corner));
        return true;
    }
    if (pEvent->button() != Qt::LeftButton || !m_pView->page()->isContentEditable())
        return false;
    if (pEvent->type() == QEvent::MouseButtonRelease)
        return std::exchange(m_bPictureClicked, false);
    return press(pEvent);
}

// On a handle or on a picture.
bool CPagePictures::press(QMouseEvent *pEvent)
{
    m_corner = cornerAt(frame(), pEvent->pos());
    if (m_corner != PictureCorner::None) {
        m_rectDrawn = frame();
        return true;
    }
    if (!isReady() || pEvent->modifiers() != Qt::NoModifier
        || !askPage(m_pView, QStringLiteral("selectPictureAt"), at(pEvent->pos()))
                .toMap()
                .value(QStringLiteral("present"))
                .toBool())
        return false;
    m_bPictureClicked = true;
    m_pView->setFocus(Qt::MouseFocusReason);
    m_pView->endStep();
    measure();
    if (pEvent->type() == QEvent::MouseButtonDblClick) {
        m_bPictureClicked = false;
        QTimer::singleShot(0, this, &CPagePictures::ask);
    }
    return true;
}

void CPagePictures::finishResizing()
{
    m_corner = PictureCorner::None;
    const qreal dZoom = m_pView->zoomFactor();
    const QSize size(qRound(m_rectDrawn.width() / dZoom), qRound(m_rectDrawn.height() / dZoom));
    if (m_rectDrawn.size() != frame().size())
        runPageCommand(
            m_pView, QStringLiteral("sizePicture"),
            {{QStringLiteral("width"), size.width()}, {QStringLiteral("height"), size.height()}});
}

void CPagePictures::measureSoon()
{
    m_timerMeasure.start();
}

// A caret, which selects nothing, is told from a selection without asking the page.
void CPagePictures::measure()
{
    const QVariantMap now = m_pView->isBodyEdited() && m_pView->isVisible()
            && m_pView->pageAction(QWebPage::Copy)->isEnabled()
        ? askPage(m_pView, QStringLiteral("picture")).toMap()
        : QVariantMap();
    if (now == m_selected)
        return;
    m_selected = now;
    m_pView->update();
}

// Of the selected picture, in the view; empty for none.
QRect CPagePictures::frame() const
{
    const QVariantList lstBox = m_selected.value(QStringLiteral("box")).toList();
    if (lstBox.size() != 4)
        return QRect();
    const qreal dZoom = m_pView->zoomFactor();
    const QRectF box(lstBox.at(0).toReal() * dZoom, lstBox.at(1).toReal() * dZoom,
                     lstBox.at(2).toReal() * dZoom, lstBox.at(3).toReal() * dZoom);
    return box.toRect().translated(-m_pView->page()->mainFrame()->scrollPosition());
}

void CPagePictures::paint(QPainter *pPainter) const
{
    if (frame().isEmpty())
        return;
    paintFrame(pPainter, m_corner == PictureCorner::None ? frame() : m_rectDrawn);
}
