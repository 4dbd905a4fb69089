#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>

// Files made to crash, hang or flood the program that shows them. They are always the same.

struct SHostileFile
{
    enum class Kind { Page, Picture, Drawing, Text };

    Kind kind = Kind::Text;
    QString strName; // The name of the file. No two are the same.
    QByteArray data;
    QMap<QString, QByteArray> mapBeside; // Other files in its folder, by their names.
};

QString kindName(SHostileFile::Kind kind);

QList<SHostileFile> hostilePages();
QList<SHostileFile> hostilePictures();
QList<SHostileFile> hostileDrawings();
QList<SHostileFile> hostileTexts();

// All of them.
QList<SHostileFile> hostileFiles();

// Writes it into a folder of its own within the given one. The path of the file, or an empty one.
QString writeHostile(const SHostileFile &file, const QString &strFolder);
