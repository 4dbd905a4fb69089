#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>

// All pictures for the image view, the preview and the icons of pages are decoded here. A picture
// is decoded only if its format is on a list, its first bytes fit the format, and the header tells
// a reasonable size (see pictureheader.h). An SVG drawing opens no other file.

// Larger picture files are not read; bytes.
constexpr qint64 g_nMaxPictureBytes = 256LL * 1024 * 1024;

// The first frame of a picture in that format ("PNG"). Null if it is none.
QImage decodePicture(const QByteArray &data, const QByteArray &format);

// The same for a regular file, whose suffix names the format.
QImage readPicture(const QString &strPath);

// The same for a picture whose name may be that of another format; an SVG drawing needs its own
// name.
QImage readIcon(const QString &strPath);
