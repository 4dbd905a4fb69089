#pragma once

#include <QByteArray>
#include <QSize>

// What the first bytes of a picture tell. Nothing is decoded, and file names do not count.
struct SPictureHeader
{
    enum class Kind {
        Other, // Not a known picture format.
        Png,
        Jpeg,
        Gif,
        Bmp,
        Ico, // Icons and cursors.
        Webp,
        Tiff,
        Pnm, // PBM, PGM, PPM.
        Xpm,
        Xbm,
        Svg, // Recognised by its beginning only: any XML or HTML, and any gzip file.
    };

    Kind kind = Kind::Other;
    QSize size; // The size of the largest picture in it, in pixels; invalid if unknown.
    int nBytesPerPixel = 4; // Once decoded.
    int nFrames = 1;
    int nPasses = 1; // Passes of a progressive picture.

    // The memory that all of it takes once decoded.
    qint64 decodedBytes() const;
};

SPictureHeader pictureHeader(const QByteArray &data);

// True for a picture that tells a reasonable size: at most 64 megapixels and 256 MB once decoded.
// False for SVG, which can do harm in other ways (see svgimages.h). An animation of which only the
// first frame is shown takes no more than that.
bool isReasonable(const SPictureHeader &header, bool bAllFrames);
