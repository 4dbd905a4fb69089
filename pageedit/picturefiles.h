#pragma once

#include <QByteArray>
#include <QSize>
#include <QString>

// Files of pictures and their addresses in pages. Functions over the file system; any thread.

// True for the suffix of a format that pages show.
bool isPictureFile(const QString &strPath);

// The picture's size in pixels; invalid if it is no picture of a reasonable size.
QSize pictureSize(const QString &strPath);

// The file that an address of the page means; empty for an address of the web or of another machine
// than the page's.
QString pictureFile(const QString &strPage, const QString &strAddress);

// Writes the bytes beside the page under the wished name, or as "name-1.png", "name-2.png" … if the
// name is taken; nothing is overwritten. A file with the same bytes is used as it is. Gives the
// path, or an empty one with the reason.
QString storeBeside(const QString &strPage, const QString &strName, const QByteArray &arrData,
                    QString *pError);
// The same with a name made of the page's: "page-1.png".
QString storeNew(const QString &strPage, const QByteArray &arrPng, QString *pError);
// The same with the bytes of a file.
QString copyBeside(const QString &strPage, const QString &strFile, QString *pError);
