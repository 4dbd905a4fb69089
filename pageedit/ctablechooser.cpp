#include "pageedit/ctablechooser.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace {

const int g_nChoiceColumns = 10;
const int g_nChoiceRows = 8;
const int g_nChoiceSquare = 18; // Pixels, with the gap.
const int g_nChoiceMargin = 6;

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
    return {g_nChoiceColumns * g_nChoiceSquare + 2 * g_nChoiceMargin,
            g_nChoiceRows * g_nChoiceSquare + 2 * g_nChoiceMargin + fontMetrics().height()};
}

void CTableChooser::mark(const QSize &size)
{
    m_marked = size.expandedTo({1, 1}).boundedTo({g_nChoiceColumns, g_nChoiceRows});
    setAccessibleName(
        tr("New table: %1 rows, %2 columns").arg(m_marked.height()).arg(m_marked.width()));
    update();
}

void CTableChooser::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    for (int nRow = 0; nRow < g_nChoiceRows; ++nRow) {
        for (int nColumn = 0; nColumn < g_nChoiceColumns; ++nColumn) {
            const QRect square(g_nChoiceMargin + nColumn * g_nChoiceSquare,
                               g_nChoiceMargin + nRow * g_nChoiceSquare, g_nChoiceSquare - 3,
                               g_nChoiceSquare - 3);
            const bool bMarked = nRow < m_marked.height() && nColumn < m_marked.width();
            painter.setPen(palette().color(QPalette::Mid));
            painter.setBrush(palette().brush(bMarked ? QPalette::Highlight : QPalette::Base));
            painter.drawRect(square);
        }
    }
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(rect().adjusted(0, 0, 0, -g_nChoiceMargin / 2),
                     Qt::AlignHCenter | Qt::AlignBottom,
                     tr("%1 × %2").arg(m_marked.height()).arg(m_marked.width()));
}

// The number of columns and rows up to the point.
QSize CTableChooser::at(const QPoint &point) const
{
    return {(point.x() - g_nChoiceMargin) / g_nChoiceSquare + 1,
            (point.y() - g_nChoiceMargin) / g_nChoiceSquare + 1};
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
    const bool bLeaves = (pEvent->key() == Qt::Key_Down && m_marked.height() == g_nChoiceRows)
        || (pEvent->key() == Qt::Key_Up && m_marked.height() == 1);
    if (bLeaves) { // Passes the event to the menu around it.
        QWidget::keyPressEvent(pEvent);
        return;
    }
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
