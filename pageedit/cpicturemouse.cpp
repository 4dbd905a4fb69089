#include "pageedit/cpicturemouse.h"

#include "pageedit/pagecommands.h"
#include "web/ceditwebview.h"

#include <QAction>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWebFrame>
#include <QWebView>

CPictureMouse::CPictureMouse(CEditWebView *pView) : QObject(pView), m_pView(pView), m_cursor(pView)
{
    m_timerMeasure.setSingleShot(true);
    m_timerMeasure.setInterval(0);
    connect(&m_timerMeasure, &QTimer::timeout, this, &CPictureMouse::measure);
    const QWebPage *pPage = pView->page();
    connect(pPage, &QWebPage::selectionChanged, this, &CPictureMouse::measureSoon);
    connect(pPage, &QWebPage::contentsChanged, this, &CPictureMouse::measureSoon);
    connect(pPage, &QWebPage::scrollRequested, this, &CPictureMouse::measureSoon);
    connect(pPage->mainFrame(), &QWebFrame::contentsSizeChanged, this, &CPictureMouse::measureSoon);
    connect(pView, &QWebView::loadFinished, this, &CPictureMouse::measureSoon);
    connect(pView, &CEditWebView::painted, this, &CPictureMouse::paint);
    pView->installEventFilter(this);
}

bool CPictureMouse::eventFilter(QObject *pObject, QEvent *pEvent)
{
    switch (pEvent->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
        return handleMouse(static_cast<QMouseEvent *>(pEvent));
    case QEvent::KeyPress:
        return static_cast<QKeyEvent *>(pEvent)->key() == Qt::Key_Escape && cancel();
    case QEvent::FocusOut:
    case QEvent::Hide:
        cancel();
        break;
    case QEvent::Resize:
    case QEvent::Show:
        measureSoon();
        break;
    default:
        break;
    }
    return QObject::eventFilter(pObject, pEvent);
}

bool CPictureMouse::handleMouse(QMouseEvent *pEvent)
{
    if (m_corner != PictureCorner::None) {
        draw(pEvent);
        return true;
    }
    if (pEvent->type() == QEvent::MouseMove)
        return m_bPictureClicked ? drag(pEvent) : hover(pEvent);
    if (pEvent->button() != Qt::LeftButton || !m_pView->page()->isContentEditable())
        return false;
    return pEvent->type() == QEvent::MouseButtonRelease ? finishDrag(pEvent->pos()) : press(pEvent);
}

bool CPictureMouse::hover(const QMouseEvent *pEvent)
{
    const PictureCorner corner = cornerAt(frame(), pEvent->pos());
    if (corner == PictureCorner::None || pEvent->buttons() != Qt::NoButton) {
        m_cursor.giveBack();
        return false;
    }
    m_cursor.show(cursorOf(corner));
    return true;
}

// The mouse is on a handle or on a picture.
bool CPictureMouse::press(QMouseEvent *pEvent)
{
    m_corner = cornerAt(frame(), pEvent->pos());
    if (m_corner != PictureCorner::None) {
        m_rectDrawn = frame();
        return true;
    }
    if (!isOwnPageEdited(m_pView) || pEvent->modifiers() != Qt::NoModifier
        || !askPage(m_pView, QStringLiteral("selectPictureAt"), pagePoint(m_pView, pEvent->pos()))
                .toMap()
                .value(QStringLiteral("present"))
                .toBool())
        return false;
    m_bPictureClicked = true;
    m_pressed = pEvent->pos();
    m_pView->setFocus(Qt::MouseFocusReason);
    m_pView->endStep();
    measure();
    if (pEvent->type() == QEvent::MouseButtonDblClick) {
        m_bPictureClicked = false;
        QTimer::singleShot(0, this, &CPictureMouse::opened);
    }
    return true;
}

// Drags a corner to another place.
void CPictureMouse::draw(const QMouseEvent *pEvent)
{
    m_rectDrawn = resized(frame(), m_corner, pEvent->pos());
    if (pEvent->type() == QEvent::MouseButtonRelease)
        finishDrawing();
    m_pView->update();
}

void CPictureMouse::finishDrawing()
{
    m_corner = PictureCorner::None;
    const qreal dZoom = m_pView->zoomFactor();
    const QSize size(qRound(m_rectDrawn.width() / dZoom), qRound(m_rectDrawn.height() / dZoom));
    if (m_rectDrawn.size() != frame().size())
        runPageCommand(
            m_pView, QStringLiteral("sizePicture"),
            {{QStringLiteral("width"), size.width()}, {QStringLiteral("height"), size.height()}});
}

void CPictureMouse::measureSoon()
{
    m_timerMeasure.start();
}

// Tells a caret from a selection without asking the page.
void CPictureMouse::measure()
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

// The frame of the selected picture, in the view; empty for none.
QRect CPictureMouse::frame() const
{
    return viewRect(m_pView, m_selected.value(QStringLiteral("box")));
}

void CPictureMouse::paint(QPainter *pPainter) const
{
    if (!frame().isEmpty())
        paintFrame(pPainter, m_corner == PictureCorner::None ? frame() : m_rectDrawn);
    if (m_bDragged && !m_rectDrop.isEmpty())
        paintDropPlace(pPainter, m_rectDrop);
}
