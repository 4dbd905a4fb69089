#pragma once

#include <QString>
#include <QVector>

// The name of an open document in a list.
struct STabName
{
    QString strTitle; // May end with the "*" of a modified document.
    QString strPath; // Empty without a file.
};

// For each document the text that tells it from others with the same title: as few of its last
// folders as are needed, with "…/" before them if more are left out. If the title is not the file's
// name, as with a page, the file's name follows the folders. Empty if the title is enough or there
// is no file.
QStringList foldersToTellApart(const QVector<STabName> &lstNames);

// The name on one line of a list. Line ends and tabs become blanks.
QString onOneLine(QString strText);
