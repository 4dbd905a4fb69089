#include "web/pictureheader.h"

#include "web/pictureframes.h"

#include <QRegularExpression>
#include <QtEndian>

namespace {

using Kind = SPictureHeader::Kind;

constexpr qint64 g_nMaxPixels = 64LL * 1024 * 1024;
constexpr qint64 g_nMaxDecodedBytes = 256LL * 1024 * 1024;

// A progressive JPEG of a few kilobytes can make a decoder go over all pixels thousands of times.
// Ordinary ones have about ten passes.
constexpr qint64 g_nMaxPasses = 100;
constexpr qint64 g_nMaxPixelPasses = 10 * g_nMaxPixels;

// How far the plain-text formats are looked into for their size.
constexpr int g_nMaxTextHeader = 4096;

template<typename T> T number(const QByteArray &data, int nPos, bool bBigEndian)
{
    if (nPos < 0 || nPos > data.size() - int(sizeof(T)))
        return 0;
    const char *p = data.constData() + nPos;
    return bBigEndian ? qFromBigEndian<T>(p) : qFromLittleEndian<T>(p);
}

SPictureHeader named(Kind kind, const QSize &size = QSize())
{
    SPictureHeader header;
    header.kind = kind;
    header.size = size;
    return header;
}

// A size that does not fit counts as none.
QSize checkedSize(quint32 nWidth, quint32 nHeight)
{
    constexpr quint32 nMost = 0x7fffffff;
    return nWidth > nMost || nHeight > nMost ? QSize() : QSize(int(nWidth), int(nHeight));
}

SPictureHeader png(const QByteArray &data)
{
    SPictureHeader header = named(Kind::Png);
    if (data.mid(12, 4) == "IHDR")
        header.size = checkedSize(number<quint32>(data, 16, true), number<quint32>(data, 20, true));
    if (number<quint8>(data, 24, true) == 16)
        header.nBytesPerPixel = 8;
    return header;
}

// The size follows blocks of any length; it is in the first one that begins a frame.
SPictureHeader jpeg(const QByteArray &data)
{
    SPictureHeader header = named(Kind::Jpeg);
    header.nPasses = qMax(1, data.count("\xff\xda")); // Never within a pass.
    int nPos = 2;
    while (nPos + 9 <= data.size()) {
        if (uchar(data.at(nPos)) != 0xff)
            break;
        const auto cMarker = uchar(data.at(nPos + 1));
        if (cMarker == 0xff) { // Filling.
            ++nPos;
            continue;
        }
        const bool bFrame = cMarker >= 0xc0 && cMarker <= 0xcf && cMarker != 0xc4 && cMarker != 0xc8
            && cMarker != 0xcc;
        if (bFrame) {
            header.size =
                QSize(number<quint16>(data, nPos + 7, true), number<quint16>(data, nPos + 5, true));
            break;
        }
        const bool bBare = cMarker == 0x01 || (cMarker >= 0xd0 && cMarker <= 0xd8);
        nPos += bBare ? 2 : 2 + qMax<int>(2, number<quint16>(data, nPos + 2, true));
    }
    return header;
}

SPictureHeader gif(const QByteArray &data)
{
    SPictureHeader header = named(Kind::Gif, largestGifFrame(data));
    header.nFrames = countGifFrames(data);
    return header;
}

SPictureHeader bmp(const QByteArray &data, int nPos)
{
    SPictureHeader header = named(Kind::Bmp);
    if (number<quint32>(data, nPos, false) == 12) { // The oldest form.
        header.size =
            QSize(number<quint16>(data, nPos + 4, false), number<quint16>(data, nPos + 6, false));
    } else {
        const auto nHeight = number<qint32>(data, nPos + 8, false);
        header.size = checkedSize(number<quint32>(data, nPos + 4, false),
                                  quint32(qAbs(qint64(nHeight)))); // Negative: from the top.
    }
    return header;
}

// The list at the beginning may be wrong, so the pictures themselves count.
SPictureHeader ico(const QByteArray &data)
{
    SPictureHeader header = named(Kind::Ico);
    const int nCount = number<quint16>(data, 4, false);
    for (int n = 0; n < nCount; ++n) {
        const auto nPos = number<quint32>(data, 6 + n * 16 + 12, false);
        if (nPos == 0 || nPos >= quint32(data.size()))
            return named(Kind::Ico);
        const QByteArray inner = data.mid(int(nPos), 64);
        SPictureHeader picture = inner.startsWith("\x89PNG") ? png(inner) : bmp(inner, 0);
        if (picture.kind == Kind::Bmp) // The mask follows below the picture.
            picture.size.rheight() = picture.size.height() / 2;
        if (!picture.size.isValid())
            return named(Kind::Ico);
        header.size = header.size.expandedTo(picture.size);
        header.nBytesPerPixel = qMax(header.nBytesPerPixel, picture.nBytesPerPixel);
    }
    return header;
}

SPictureHeader webp(const QByteArray &data)
{
    SPictureHeader header = named(Kind::Webp);
    const QByteArray chunk = data.mid(12, 4);
    if (chunk == "VP8X") {
        header.size = QSize(int(number<quint32>(data, 23, false) >> 8) + 1,
                            int(number<quint32>(data, 26, false) >> 8) + 1);
        header.nFrames = countWebpFrames(data);
    } else if (chunk == "VP8L") {
        const auto nBits = number<quint32>(data, 21, false);
        header.size = QSize(int(nBits & 0x3fff) + 1, int(nBits >> 14 & 0x3fff) + 1);
    } else if (chunk == "VP8 ") {
        header.size = QSize(number<quint16>(data, 26, false) & 0x3fff,
                            number<quint16>(data, 28, false) & 0x3fff);
    }
    return header;
}

SPictureHeader tiff(const QByteArray &data)
{
    SPictureHeader header = named(Kind::Tiff);
    header.nBytesPerPixel = 8;
    const bool bBig = data.startsWith('M');
    const auto nDirectory = number<quint32>(data, 4, bBig);
    if (nDirectory == 0 || nDirectory > quint32(data.size()))
        return header;
    quint32 nWidth = 0;
    quint32 nHeight = 0;
    const int nCount = number<quint16>(data, int(nDirectory), bBig);
    for (int n = 0; n < nCount; ++n) {
        const int nEntry = int(nDirectory) + 2 + n * 12;
        const int nTag = number<quint16>(data, nEntry, bBig);
        const bool bShort = number<quint16>(data, nEntry + 2, bBig) == 3;
        const quint32 nValue = bShort ? number<quint16>(data, nEntry + 8, bBig)
                                      : number<quint32>(data, nEntry + 8, bBig);
        if (nTag == 256)
            nWidth = nValue;
        else if (nTag == 257)
            nHeight = nValue;
    }
    header.size = checkedSize(nWidth, nHeight);
    return header;
}

// The two numbers of the first match.
QSize sizeInText(const QByteArray &data, const QRegularExpression &regExp)
{
    const QRegularExpressionMatch match =
        regExp.match(QString::fromLatin1(data.left(g_nMaxTextHeader)));
    bool bWidth = false;
    bool bHeight = false;
    const QSize size(match.captured(1).toInt(&bWidth), match.captured(2).toInt(&bHeight));
    return bWidth && bHeight ? size : QSize();
}

SPictureHeader pnm(const QByteArray &data)
{
    static const QRegularExpression regExp(
        QStringLiteral("^P[1-6](?:\\s|#[^\\n]*\\n)+(\\d+)(?:\\s|#[^\\n]*\\n)+(\\d+)"));
    return named(Kind::Pnm, sizeInText(data, regExp));
}

SPictureHeader xpm(const QByteArray &data)
{
    static const QRegularExpression regExp(QStringLiteral("\"\\s*(\\d+)\\s+(\\d+)\\s+\\d+\\s+\\d"));
    return named(Kind::Xpm, sizeInText(data, regExp));
}

SPictureHeader xbm(const QByteArray &data)
{
    static const QRegularExpression regExp(
        QStringLiteral("^#define\\s+\\S+\\s+(\\d+)\\s+#define\\s+\\S+\\s+(\\d+)"));
    return named(Kind::Xbm, sizeInText(data, regExp));
}

// Is as lenient as Qt's SVG plug-in, which accepts anything with one of these in its first bytes.
bool mayBeSvg(const QByteArray &data)
{
    if (data.startsWith("\x1f\x8b"))
        return true;
    const QByteArray start = data.left(64);
    for (const char *szMark : {"<?xml", "<svg", "<!--", "<!DOC", "<!doc"})
        if (start.contains(szMark))
            return true;
    return start.trimmed().startsWith('<');
}

bool isPnm(const QByteArray &data)
{
    return data.size() > 2 && data.at(0) == 'P' && data.at(1) >= '1' && data.at(1) <= '6'
        && (isspace(uchar(data.at(2))) || data.at(2) == '#');
}

} // namespace

qint64 SPictureHeader::decodedBytes() const
{
    return qint64(size.width()) * size.height() * nBytesPerPixel * nFrames;
}

SPictureHeader pictureHeader(const QByteArray &data)
{
    if (data.startsWith("\x89PNG\r\n\x1a\n"))
        return png(data);
    if (data.startsWith("\xff\xd8\xff"))
        return jpeg(data);
    if (data.startsWith("GIF8"))
        return gif(data);
    if (data.startsWith("BM"))
        return bmp(data, 14);
    if (data.startsWith(QByteArray("\0\0\1\0", 4)) || data.startsWith(QByteArray("\0\0\2\0", 4)))
        return ico(data);
    if (data.startsWith("RIFF") && data.mid(8, 4) == "WEBP")
        return webp(data);
    if (data.startsWith(QByteArray("II*\0", 4)) || data.startsWith(QByteArray("MM\0*", 4)))
        return tiff(data);
    if (isPnm(data))
        return pnm(data);
    if (data.startsWith("/* XPM"))
        return xpm(data);
    if (data.startsWith("#define"))
        return xbm(data);
    return named(mayBeSvg(data) ? Kind::Svg : Kind::Other);
}

bool isReasonable(const SPictureHeader &header, bool bAllFrames)
{
    if (header.kind == Kind::Other || header.kind == Kind::Svg || header.size.isEmpty())
        return false;
    const qint64 nPixels = qint64(header.size.width()) * header.size.height();
    return nPixels <= g_nMaxPixels && header.nPasses <= g_nMaxPasses
        && nPixels * header.nPasses <= g_nMaxPixelPasses
        && header.decodedBytes() / (bAllFrames ? 1 : header.nFrames) <= g_nMaxDecodedBytes;
}
