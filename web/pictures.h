#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>

// The one way to a decoded picture, for the image view, the preview and the icons of pages. Only
// formats of a list are decoded, only when the first bytes are that format's, and only when the
// header tells a reasonable size (see pictureheader.h). An SVG drawing opens no other file.

// No picture file of more bytes than this is read.
constexpr qint64 g_nMaxPictureBytes = 256LL * 1024 * 1024;

// The first frame of a picture that is named as of that format ("PNG"). Null when it is none.
QImage decodePicture(const QByteArray &data, const QByteArray &format);

// The same of a regular file, whose suffix names the format.
QImage readPicture(const QString &strPath);

// The same of a picture whose name may say another format than it has; of an SVG drawing that is
// named so.
QImage readIcon(const QString &strPath);
