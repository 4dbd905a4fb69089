#pragma once

#include <QString>
#include <QVector>

// An open document as a list names it.
struct STabName
{
    QString strTitle; // May end with the "*" of a modified document.
    QString strPath; // Empty without a file.
};

// For each document what tells it from those with the same title: as few of its last folders as do,
// "…/" before them where more are left out. Where the title is not the file's own name, as a page's
// may be, the file's name stands behind the folders. Empty where the title says enough or there is
// no file.
QStringList foldersToTellApart(const QVector<STabName> &lstNames);

// On one line of a list: signs that would break it, or put the rest into another column, are
// blanks.
QString onOneLine(QString strText);
