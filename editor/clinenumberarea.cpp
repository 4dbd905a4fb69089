#include "editor/clinenumberarea.h"

#include "editor/chighlightedit.h"

#include <QCoreApplication>
#include <QWheelEvent>

CLineNumberArea::CLineNumberArea(CHighlightEdit *pEditor) : QWidget(pEditor), m_pEditor(pEditor)
{
    // It paints all of its background, so that Qt can scroll its pixels.
    setAttribute(Qt::WA_OpaquePaintEvent);
}

QSize CLineNumberArea::sizeHint() const
{
    return QSize(m_pEditor->lineNumberAreaWidth(), 0);
}

void CLineNumberArea::paintEvent(QPaintEvent *pEvent)
{
    m_pEditor->lineNumberAreaPaintEvent(pEvent);
}

void CLineNumberArea::wheelEvent(QWheelEvent *pEvent)
{
    QCoreApplication::sendEvent(m_pEditor->viewport(), pEvent);
}
