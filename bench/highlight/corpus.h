#pragma once

#include <QByteArray>
#include <QStringList>

// Real text of one language, collected from files of this machine.
struct SCorpus
{
    QString strName;
    QString strFileName; // Decides the definition.
    QStringList lstLines;
    qint64 nBytes = 0;
    bool bRepeated = false; // The files were too short.
    qint64 nBytesOnce = 0; // Their size without repetition.

    QString text() const { return lstLines.join(QLatin1Char('\n')); }
    // The first lines, up to nMaxBytes.
    SCorpus head(qint64 nMaxBytes) const;
};

// The files one after the other, again and again until there are nBytes.
SCorpus readFiles(const QString &strName, const QString &strFileName, const QStringList &lstPaths,
                  qint64 nBytes);
// Collects all such files in the folders. Empty if there are none.
SCorpus collect(const QString &strName, const QString &strFileName, const QStringList &lstFolders,
                const QStringList &lstPatterns, qint64 nBytes);
