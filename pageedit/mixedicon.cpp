#include "pageedit/mixedicon.h"

#include <QPainter>

QIcon mixedIcon(const QIcon &icon)
{
    QIcon mixed;
    for (const int nScale : {1, 2}) {
        const int nSize = 24 * nScale;
        QPixmap pixmap = icon.pixmap(QSize(nSize, nSize));
        pixmap.setDevicePixelRatio(1);
        pixmap = pixmap.scaled(nSize, nSize, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        QPainter painter(&pixmap);
        painter.setPen(QPen(QColor(0x2b, 0x83, 0xd9), nScale, Qt::DashLine));
        painter.drawRect(0, 0, nSize - nScale, nSize - nScale);
        painter.end();
        pixmap.setDevicePixelRatio(nScale);
        mixed.addPixmap(pixmap);
    }
    return mixed;
}
