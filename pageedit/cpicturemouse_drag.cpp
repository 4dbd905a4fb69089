// Drags a picture to another place in the text.
#include "pageedit/cpicturemouse.h"

#include "pageedit/pagecommands.h"
#include "web/ceditwebview.h"

#include <QApplication>
#include <QMouseEvent>
#include <QWebFrame>

#include <utility>

namespace {

const int g_nScrollEdge = 24; // Pixels of the view's edge where it scrolls, and by how many.

} // namespace

// While the button is down the page gets no events: it would select text beside the picture.
bool CPictureMouse::drag(const QMouseEvent *pEvent)
{
    if (!(pEvent->buttons() & Qt::LeftButton)) {
        cancel();
        return false;
    }
    const int nWay = (pEvent->pos() - m_pressed).manhattanLength();
    m_bDragged = m_bDragged || nWay >= QApplication::startDragDistance();
    if (m_bDragged)
        showDropPlace(pEvent->pos());
    return true;
}

void CPictureMouse::showDropPlace(const QPoint &point)
{
    if (point.y() < g_nScrollEdge)
        m_pView->page()->mainFrame()->scroll(0, -g_nScrollEdge);
    else if (point.y() > m_pView->height() - g_nScrollEdge)
        m_pView->page()->mainFrame()->scroll(0, g_nScrollEdge);
    const QVariantMap place =
        askPage(m_pView, QStringLiteral("pictureDropPlace"), pagePoint(m_pView, point)).toMap();
    m_rectDrop = viewRect(m_pView, place.value(QStringLiteral("box")));
    m_cursor.show(m_rectDrop.isEmpty() ? Qt::ForbiddenCursor : Qt::DragMoveCursor);
    m_pView->update();
}

bool CPictureMouse::finishDrag(const QPoint &point)
{
    const bool bMoves = m_bDragged && !m_rectDrop.isEmpty() && m_pView->rect().contains(point);
    if (!cancel())
        return false;
    if (bMoves)
        runPageCommand(m_pView, QStringLiteral("movePicture"), pagePoint(m_pView, point));
    return true;
}

// True if a picture was being dragged.
bool CPictureMouse::cancel()
{
    if (!std::exchange(m_bPictureClicked, false))
        return false;
    m_bDragged = false;
    m_rectDrop = QRect();
    m_cursor.giveBack();
    m_pView->update();
    return true;
}
