#pragma once

#include <QBuffer>
#include <QByteArray>
#include <QImage>
#include <QtEndian>

// Pictures made byte by byte: what their headers claim has nothing to do with what follows.

inline QByteArray bigEndian(quint32 nValue)
{
    QByteArray bytes(4, '\0');
    qToBigEndian(nValue, bytes.data());
    return bytes;
}

inline QByteArray littleEndian(quint32 nValue, int nBytes)
{
    QByteArray bytes(4, '\0');
    qToLittleEndian(nValue, bytes.data());
    return bytes.left(nBytes);
}

// Complete pictures with correct headers.
inline QByteArray savedPicture(const QImage &image, const char *szFormat)
{
    QByteArray data;
    QBuffer buffer(&data);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, szFormat);
    return data;
}

inline QByteArray savedPicture(const char *szFormat, const QSize &size = QSize(5, 4))
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::blue);
    return savedPicture(image, szFormat);
}

inline QByteArray pngClaiming(quint32 nWidth, quint32 nHeight, char nDepth = 8)
{
    QByteArray data = savedPicture("PNG");
    data.replace(16, 8, bigEndian(nWidth) + bigEndian(nHeight));
    data[24] = nDepth;
    return data;
}

inline QByteArray bmpClaiming(quint32 nWidth, quint32 nHeight)
{
    QByteArray data = savedPicture("BMP");
    return data.replace(18, 8, littleEndian(nWidth, 4) + littleEndian(nHeight, 4));
}

// Its list says that the picture is of 16 by 16 pixels.
inline QByteArray icoAround(const QByteArray &picture)
{
    return QByteArray("\0\0\1\0\1\0\x10\x10\0\0\1\0\x20\0", 14) + littleEndian(picture.size(), 4)
        + littleEndian(22, 4) + picture;
}

inline QByteArray gifOf(int nWidth, int nHeight, int nFrames)
{
    const QByteArray frame = "," + QByteArray(4, '\0') + littleEndian(nWidth, 2)
        + littleEndian(nHeight, 2) + QByteArray("\0\2\2\x44\1\0", 6);
    return "GIF89a" + littleEndian(nWidth, 2) + littleEndian(nHeight, 2)
        + QByteArray("\x80\0\0\0\0\0\xff\xff\xff", 9) + frame.repeated(nFrames) + ";";
}

// The frame's header behind a block of the camera's, then so many passes.
inline QByteArray jpegClaiming(int nWidth, int nHeight, int nPasses = 1)
{
    const auto twoBytes = [](int nValue) { return bigEndian(quint32(nValue)).right(2); };
    return "\xff\xd8\xff\xe1" + twoBytes(40) + QByteArray(38, 'x') + "\xff\xc2" + twoBytes(11)
        + "\x08" + twoBytes(nHeight) + twoBytes(nWidth) + QByteArray("\1\1\x11\0", 4)
        + QByteArray("\xff\xda\0\x08\1\1\0\0\0\0", 10).repeated(nPasses) + "\xff\xd9";
}

inline QByteArray webpClaiming(int nWidth, int nHeight)
{
    return "RIFF" + littleEndian(22, 4) + "WEBPVP8X" + littleEndian(10, 4) + QByteArray(4, '\0')
        + littleEndian(quint32(nWidth - 1), 3) + littleEndian(quint32(nHeight - 1), 3);
}

// Its size does not count, because it may grow while it plays.
inline QByteArray mng()
{
    return QByteArray("\x8aMNG\r\n\x1a\n", 8) + bigEndian(28) + "MHDR" + QByteArray(28, '\xff')
        + bigEndian(0);
}
