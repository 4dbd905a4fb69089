#include "pageedit/ctablechooser.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace {

const int g_nColumns = 10;
const int g_nRows = 8;
const int g_nSquare = 18; // Pixels, with the gap.
const int g_nMargin = 6;

} // namespace

CTableChooser::CTableChooser(QWidget *pParent) : QWidget(pParent)
{
    setObjectName(QStringLiteral("tableChooser"));
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    mark(m_marked);
}

QSize CTableChooser::sizeHint() const
{
    return {g_nColumns * g_nSquare + 2 * g_nMargin,
            g_nRows * g_nSquare + 2 * g_nMargin + fontMetrics().height()};
}

void CTableChooser::mark(const QSize &size)
{
    m_marked = size.expandedTo({1, 1}).boundedTo({g_nColumns, g_nRows});
    setAccessibleName(
        tr("New table: %1 rows, %2 columns").arg(m_marked.height()).arg(m_marked.width()));
    update();
}

void CTableChooser::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    for (int nRow = 0; nRow < g_nRows; ++nRow) {
        for (int nColumn = 0; nColumn < g_nColumns; ++nColumn) {
            const QRect square(g_nMargin + nColumn * g_nSquare, g_nMargin + nRow * g_nSquare,
                               g_nSquare - 3, g_nSquare - 3);
            const bool bMarked = nRow < m_marked.height() && nColumn < m_marked.width();
            painter.setPen(palette().color(QPalette::Mid));
            painter.setBrush(palette().brush(bMarked ? QPalette::Highlight : QPalette::Base));
            painter.drawRect(square);
        }
    }
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(rect().adjusted(0, 0, 0, -g_nMargin / 2), Qt::AlignHCenter | Qt::AlignBottom,
                     tr("%1 × %2").arg(m_marked.height()).arg(m_marked.width()));
}

// Columns and rows up to the point.
QSize CTableChooser::at(const QPoint &point) const
{
    return {(point.x() - g_nMargin) / g_nSquare + 1, (point.y() - g_nMargin) / g_nSquare + 1};
}

void CTableChooser::mouseMoveEvent(QMouseEvent *pEvent)
{
    mark(at(pEvent->pos()));
}

void CTableChooser::mouseReleaseEvent(QMouseEvent *pEvent)
{
    mark(at(pEvent->pos()));
    if (rect().contains(pEvent->pos()))
        emit chosen(m_marked.height(), m_marked.width());
}

void CTableChooser::keyPressEvent(QKeyEvent *pEvent)
{
    switch (pEvent->key()) {
    case Qt::Key_Left:
        mark(m_marked - QSize(1, 0));
        break;
    case Qt::Key_Right:
        mark(m_marked + QSize(1, 0));
        break;
    case Qt::Key_Up:
        mark(m_marked - QSize(0, 1));
        break;
    case Qt::Key_Down:
        mark(m_marked + QSize(0, 1));
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        emit chosen(m_marked.height(), m_marked.width());
        break;
    default:
        QWidget::keyPressEvent(pEvent);
    }
}
