#pragma once

#include <QString>
#include <QStringList>

// A language and the place of real files in it.
struct SFileKind
{
    QString strName;
    QString strFileName; // Decides the definitions of both engines.
    QStringList lstFolders; // Below the folder of the unpacked packages, or absolute.
    QStringList lstPatterns; // Of file names.
};

const QList<SFileKind> &fileKinds();

// nCount files of the kind, spread evenly over all that are neither tiny nor huge. Set 1 is made of
// files that set 0 does not hold, and so on.
QStringList filesOf(const SFileKind &kind, const QString &strRoot, int nCount, int nSet = 0);

// The lines of a file in UTF-8, without line ends; none if it cannot be read.
QStringList readLines(const QString &strPath);
