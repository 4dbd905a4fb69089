#include "mainwindow/cgroundedlabel.h"

#include <QPainter>
#include <QStyle>

CGroundedLabel::CGroundedLabel(const QColor &clrGround, QWidget *pParent)
    : QLabel(pParent), m_clrGround(clrGround)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void CGroundedLabel::paintFrame()
{
    m_frame = QPixmap(size() * devicePixelRatioF());
    m_frame.setDevicePixelRatio(devicePixelRatioF());
    m_frame.fill(m_clrGround);
    QPainter painter(&m_frame);
    drawFrame(&painter);
}

void CGroundedLabel::paintEvent(QPaintEvent *)
{
    if (m_frame.size() != size() * devicePixelRatioF())
        paintFrame();
    QPainter painter(this);
    painter.drawPixmap(0, 0, m_frame);
    painter.setPen(palette().color(foregroundRole()));
    // A framed label's own indent.
    const int nIndent = qMax(margin(), fontMetrics().horizontalAdvance(QLatin1Char('x')) / 2);
    const QRect rect = contentsRect().adjusted(nIndent, margin(), -margin(), -margin());
    // The text's own direction counts, not the window's.
    const Qt::LayoutDirection direction =
        text().isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight;
    painter.drawText(QStyle::visualRect(direction, contentsRect(), rect),
                     int(QStyle::visualAlignment(direction, alignment())) | Qt::TextSingleLine,
                     text());
}

void CGroundedLabel::changeEvent(QEvent *pEvent)
{
    m_frame = QPixmap(); // The palette or style may have changed.
    QLabel::changeEvent(pEvent);
}
