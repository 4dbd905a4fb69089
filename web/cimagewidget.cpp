#include "web/cimagewidget.h"

#include "web/gunzip.h"
#include "web/svgimages.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>

namespace {

// A compressed SVG of more bytes than this is none that anybody drew.
constexpr int c_nMaxSvgBytes = 64 * 1024 * 1024;

// A picture of more pixels than this (1 GiB in memory) is not worth stopping the program for.
constexpr qint64 c_nMaxPixels = 256LL * 1024 * 1024;

QImage readImage(QImageReader &reader)
{
    const QSize size = reader.size();
    if (qint64(size.width()) * size.height() > c_nMaxPixels)
        return QImage();
    return reader.read();
}

QImage readSvg(const QByteArray &svg)
{
    QByteArray safe = withoutLinkedImages(isGzip(svg) ? gunzip(svg, c_nMaxSvgBytes) : svg);
    QBuffer buffer(&safe);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, "SVG");
    return readImage(reader);
}

QImage readImageFile(const QString &strPath)
{
    const QFileInfo info(strPath);
    if (!info.isFile()) // A pipe or a device would never end.
        return QImage();
    const QByteArray format = info.suffix().toUpper().toLatin1();
    if (format == "SVG" || format == "SVGZ") {
        QFile file(strPath);
        return file.open(QIODevice::ReadOnly) ? readSvg(file.readAll()) : QImage();
    }
    if (!QImageReader::supportedImageFormats().contains(format.toLower()))
        return QImage(); // The reader would go by the content, past what is done for SVG.
    QImageReader reader(strPath, format);
    return readImage(reader);
}

} // namespace

CImageWidget::CImageWidget(QWidget *pParent) : QWidget(pParent)
{
    setAttribute(Qt::WA_StyledBackground);
    setStyleSheet(QStringLiteral("background-color:white;"));
}

void CImageWidget::setImageFile(const QString &strPath)
{
    m_strImageFile = strPath;
    setImage(readImageFile(strPath));
}

void CImageWidget::setSvgText(const QString &strText)
{
    clearImage();
    setImage(readSvg(strText.toUtf8()));
}

void CImageWidget::clearImage()
{
    m_strImageFile.clear();
    setImage(QImage());
}

bool CImageWidget::reload()
{
    const QImage image = readImageFile(m_strImageFile);
    if (image.isNull())
        return false;
    setImage(image);
    return true;
}

QString CImageWidget::getTitle() const
{
    const QString strName = QFileInfo(m_strImageFile).fileName();
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

    // Scaling a large image takes long enough to be felt, so it is done once for each size.
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
