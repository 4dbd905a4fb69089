#include "spelling/wavyline.h"

#include <QPainter>
#include <QPainterPath>

namespace {

const qreal g_dHeight = 2; // Pixels, as is half a wave's width.
const char g_szColor[] = "#d03030";

} // namespace

void paintWavyLine(QPainter *pPainter, const QRectF &word)
{
    const qreal dBottom = word.bottom() - 0.5;
    QPainterPath path(QPointF(word.left(), dBottom));
    bool bUp = true;
    for (qreal dX = word.left() + g_dHeight; dX <= word.right(); dX += g_dHeight) {
        path.lineTo(dX, bUp ? dBottom - g_dHeight : dBottom);
        bUp = !bUp;
    }
    pPainter->save();
    pPainter->setRenderHint(QPainter::Antialiasing);
    pPainter->strokePath(path, QPen(QColor(QLatin1String(g_szColor)), 1));
    pPainter->restore();
}
