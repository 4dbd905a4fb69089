#include "web/pictures.h"

#include "web/gunzip.h"
#include "web/pictureheader.h"
#include "web/regularfile.h"
#include "web/svgimages.h"

#include <QBuffer>
#include <QFileInfo>
#include <QHash>
#include <QImageReader>

namespace {

using Kind = SPictureHeader::Kind;

// Nobody draws a compressed SVG of more bytes than this.
constexpr int g_nMaxSvgBytes = 64 * 1024 * 1024;

constexpr qint64 g_nMaxIconBytes = 1024LL * 1024;

Kind kindOf(const QByteArray &format)
{
    static const QHash<QByteArray, Kind> hashKinds = {
        {"PNG", Kind::Png},  {"JPG", Kind::Jpeg},  {"JPEG", Kind::Jpeg}, {"GIF", Kind::Gif},
        {"BMP", Kind::Bmp},  {"ICO", Kind::Ico},   {"CUR", Kind::Ico},   {"WEBP", Kind::Webp},
        {"TIF", Kind::Tiff}, {"TIFF", Kind::Tiff}, {"PBM", Kind::Pnm},   {"PGM", Kind::Pnm},
        {"PPM", Kind::Pnm},  {"XPM", Kind::Xpm},   {"XBM", Kind::Xbm},   {"SVG", Kind::Svg},
        {"SVGZ", Kind::Svg}};
    return hashKinds.value(format, Kind::Other);
}

QImage decode(QByteArray data, const QByteArray &format)
{
    QBuffer buffer(&data);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, format);
    return reader.read();
}

QImage decodeSvg(const QByteArray &svg)
{
    QByteArray safe = withoutLinkedImages(isGzip(svg) ? gunzip(svg, g_nMaxSvgBytes) : svg);
    QBuffer buffer(&safe);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, "SVG");
    SPictureHeader header;
    header.kind = Kind::Bmp; // Its size when decompressed.
    header.size = reader.size();
    return isReasonable(header, false) ? reader.read() : QImage();
}

// The formats of icons of pages.
QByteArray formatOf(const QByteArray &data)
{
    switch (pictureHeader(data).kind) {
    case Kind::Png:
        return "PNG";
    case Kind::Jpeg:
        return "JPG";
    case Kind::Gif:
        return "GIF";
    case Kind::Bmp:
        return "BMP";
    case Kind::Ico:
        return "ICO";
    case Kind::Webp:
        return "WEBP";
    default:
        return QByteArray();
    }
}

} // namespace

QImage decodePicture(const QByteArray &data, const QByteArray &format)
{
    const Kind kind = kindOf(format);
    if (kind == Kind::Svg)
        return decodeSvg(data);
    const SPictureHeader header = pictureHeader(data);
    if (kind != header.kind || !isReasonable(header, false)
        || !QImageReader::supportedImageFormats().contains(format.toLower()))
        return QImage();
    return decode(data, format);
}

QImage readPicture(const QString &strPath)
{
    const QByteArray format = QFileInfo(strPath).suffix().toUpper().toLatin1();
    QByteArray data;
    if (kindOf(format) == Kind::Other || !readRegularFile(strPath, g_nMaxPictureBytes, &data))
        return QImage();
    return decodePicture(data, format);
}

QImage readIcon(const QString &strPath)
{
    QByteArray data;
    if (!readRegularFile(strPath, g_nMaxIconBytes, &data))
        return QImage();
    const QByteArray format = formatOf(data);
    const bool bDrawing = QFileInfo(strPath).suffix().startsWith(QLatin1String("svg"));
    return decodePicture(data, bDrawing && format.isEmpty() ? QByteArray("SVG") : format);
}
