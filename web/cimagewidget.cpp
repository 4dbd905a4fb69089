#include "web/cimagewidget.h"

#include "app/plaintext.h"
#include "web/pictures.h"

#include <QFileInfo>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>

CImageWidget::CImageWidget(QWidget *pParent) : QWidget(pParent)
{
    setAttribute(Qt::WA_StyledBackground);
    setStyleSheet(QStringLiteral("background-color:white;"));
}

void CImageWidget::setImageFile(const QString &strPath)
{
    m_strImageFile = strPath;
    setImage(readPicture(strPath));
}

void CImageWidget::setSvgText(const QString &strText)
{
    clearImage();
    setImage(decodePicture(strText.toUtf8(), "SVG"));
}

void CImageWidget::clearImage()
{
    m_strImageFile.clear();
    setImage(QImage());
}

bool CImageWidget::reload()
{
    const QImage image = readPicture(m_strImageFile);
    if (image.isNull())
        return false;
    setImage(image);
    return true;
}

QString CImageWidget::getTitle() const
{
    const QString strName = visibleName(QFileInfo(m_strImageFile).fileName());
    return strName.isEmpty() ? tr("Untitled") : strName;
}

QRect CImageWidget::targetRect(const QSize &sizeView, const QSize &sizeImage)
{
    if (sizeImage.isEmpty())
        return QRect();
    const double dRatio = double(sizeImage.height()) / sizeImage.width();
    int w = qMin(sizeImage.width(), sizeView.width());
    int h = qMin(sizeImage.height(), sizeView.height());
    if (h < dRatio * w)
        w = qRound(h / dRatio);
    if (w < h / dRatio)
        h = qRound(w * dRatio);
    return QRect((sizeView.width() - w) / 2, (sizeView.height() - h) / 2, w, h);
}

void CImageWidget::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    QStyleOption option;
    option.initFrom(this);
    style()->drawPrimitive(QStyle::PE_Widget, &option, &painter, this);
    if (m_image.isNull())
        return;

    // Scaling a large image takes noticeable time, so it is done once for each size.
    const QRect rect = targetRect(size(), m_image.size());
    const QSize sizeDevice = rect.size() * devicePixelRatioF();
    if (sizeDevice.isEmpty())
        return;
    if (m_scaled.size() != sizeDevice) {
        m_scaled = QPixmap::fromImage(
            sizeDevice == m_image.size()
                ? m_image
                : m_image.scaled(sizeDevice, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    }
    painter.drawPixmap(rect, m_scaled);
}

void CImageWidget::setImage(const QImage &image)
{
    m_image = image;
    m_scaled = QPixmap();
    update();
}
