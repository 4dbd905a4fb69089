#pragma once

#include <QRect>

class QPainter;

// The frame of a selected picture with a handle at each corner. Pure functions of places in a view,
// in its pixels.

enum class PictureCorner { None, TopLeft, TopRight, BottomLeft, BottomRight };

PictureCorner cornerAt(const QRect &picture, const QPoint &point);
Qt::CursorShape cursorOf(PictureCorner corner);

// The rectangle of the picture when a corner is dragged to the point. Its proportions and the
// corner opposite stay; neither side becomes shorter than a handle.
QRect resized(const QRect &picture, PictureCorner corner, const QPoint &point);

void paintFrame(QPainter *pPainter, const QRect &picture);
// The caret that shows where a dragged picture would go.
void paintDropPlace(QPainter *pPainter, const QRect &caret);
