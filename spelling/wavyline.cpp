#include "spelling/wavyline.h"

#include <QPainter>

namespace {

const int g_nWaveHeight = 2; // Pixels, as is half a wave's width.
const char g_szWaveColor[] = "#d03030";

} // namespace

void paintWavyLine(QPainter *pPainter, const QRectF &word)
{
    const int nBottom = qRound(word.bottom()) - 1;
    QPolygon line;
    for (int nX = qRound(word.left()); nX <= word.right(); nX += g_nWaveHeight)
        line.append(QPoint(nX, line.size() % 2 == 0 ? nBottom : nBottom - g_nWaveHeight));
    pPainter->save();
    // No smoothing, because whole pixels are easier to see.
    pPainter->setRenderHint(QPainter::Antialiasing, false);
    pPainter->setPen(QColor(QLatin1String(g_szWaveColor)));
    pPainter->drawPolyline(line);
    pPainter->restore();
}
