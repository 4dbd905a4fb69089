#include "pageedit/pictureframe.h"

#include <QPainter>

namespace {

const int g_nHandle = 8; // The side of a handle in pixels.
const char g_szFrameColor[] = "#2a7fd4";

struct SHandle
{
    PictureCorner corner;
    QPoint point;
};

QVector<SHandle> handles(const QRect &picture)
{
    return {{PictureCorner::TopLeft, picture.topLeft()},
            {PictureCorner::TopRight, picture.topRight()},
            {PictureCorner::BottomLeft, picture.bottomLeft()},
            {PictureCorner::BottomRight, picture.bottomRight()}};
}

QRect handleAround(const QPoint &point)
{
    return {point - QPoint(g_nHandle / 2, g_nHandle / 2), QSize(g_nHandle, g_nHandle)};
}

bool isLeft(PictureCorner corner)
{
    return corner == PictureCorner::TopLeft || corner == PictureCorner::BottomLeft;
}

bool isTop(PictureCorner corner)
{
    return corner == PictureCorner::TopLeft || corner == PictureCorner::TopRight;
}

} // namespace

PictureCorner cornerAt(const QRect &picture, const QPoint &point)
{
    const QVector<SHandle> lstHandles = handles(picture);
    for (const SHandle &handle : lstHandles)
        if (!picture.isEmpty() && handleAround(handle.point).contains(point))
            return handle.corner;
    return PictureCorner::None;
}

Qt::CursorShape cursorOf(PictureCorner corner)
{
    return corner == PictureCorner::None  ? Qt::ArrowCursor
        : isLeft(corner) == isTop(corner) ? Qt::SizeFDiagCursor
                                          : Qt::SizeBDiagCursor;
}

QRect resized(const QRect &picture, PictureCorner corner, const QPoint &point)
{
    const double dWidth =
        isLeft(corner) ? picture.x() + picture.width() - point.x() : point.x() - picture.x() + 1;
    const double dHeight =
        isTop(corner) ? picture.y() + picture.height() - point.y() : point.y() - picture.y() + 1;
    const double dLeast = double(g_nHandle) / qMin(picture.width(), picture.height());
    const double dScale = qMax(dLeast, qMax(dWidth / picture.width(), dHeight / picture.height()));
    const QSize size(qRound(picture.width() * dScale), qRound(picture.height() * dScale));
    QRect result(picture.topLeft(), size);
    if (isLeft(corner))
        result.moveRight(picture.right());
    if (isTop(corner))
        result.moveBottom(picture.bottom());
    return result;
}

void paintFrame(QPainter *pPainter, const QRect &picture)
{
    pPainter->save();
    pPainter->setPen(QColor(QLatin1String(g_szFrameColor)));
    pPainter->setBrush(Qt::NoBrush);
    pPainter->drawRect(picture.adjusted(0, 0, -1, -1));
    pPainter->setBrush(Qt::white);
    const QVector<SHandle> lstHandles = handles(picture);
    for (const SHandle &handle : lstHandles)
        pPainter->drawRect(handleAround(handle.point).adjusted(0, 0, -1, -1));
    pPainter->restore();
}

void paintDropPlace(QPainter *pPainter, const QRect &caret)
{
    pPainter->fillRect(caret.left() - 1, caret.top(), 2, caret.height(),
                       QColor(QLatin1String(g_szFrameColor)));
}
