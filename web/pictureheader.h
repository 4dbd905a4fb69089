#pragma once

#include <QByteArray>
#include <QSize>

// What the first bytes of a picture say about it. Nothing is decoded, and no name is believed.
struct SPictureHeader
{
    enum class Kind {
        Other, // No picture that is known here.
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
        Svg, // By its beginning only: any XML or HTML, and whatever gzip holds.
    };

    Kind kind = Kind::Other;
    QSize size; // Of the largest picture in it, in pixels; invalid where it is not told.
    int nBytesPerPixel = 4; // Once decoded.
    int nFrames = 1;
    int nPasses = 1; // Of a picture that comes in coarse first.

    // What all of it takes in memory once decoded.
    qint64 decodedBytes() const;
};

SPictureHeader pictureHeader(const QByteArray &data);

// True for a picture that tells its size and is of a reasonable one: at most 64 megapixels and
// 256 MB once decoded. False for SVG, which has other ways to harm (see svgimages.h).
// An animation of which only the first frame is shown takes no more than that.
bool isReasonable(const SPictureHeader &header, bool bAllFrames);
