#include "corpus.h"

#include <QDirIterator>
#include <QFile>

SCorpus SCorpus::head(qint64 nMaxBytes) const
{
    SCorpus corpus = *this;
    corpus.lstLines.clear();
    corpus.nBytes = 0;
    corpus.bRepeated = bRepeated && nMaxBytes > nBytesOnce;
    for (const QString &strLine : lstLines) {
        if (corpus.nBytes >= nMaxBytes)
            break;
        corpus.lstLines.append(strLine);
        corpus.nBytes += strLine.toUtf8().size() + 1;
    }
    return corpus;
}

SCorpus collect(const QString &strName, const QString &strFileName, const QStringList &lstFolders,
                const QStringList &lstPatterns, qint64 nBytes)
{
    QStringList lstPaths;
    for (const QString &strFolder : lstFolders) {
        QDirIterator it(strFolder, lstPatterns, QDir::Files, QDirIterator::Subdirectories);
        while (it.hasNext())
            lstPaths.append(it.next());
    }
    lstPaths.sort();
    return readFiles(strName, strFileName, lstPaths, nBytes);
}

SCorpus readFiles(const QString &strName, const QString &strFileName, const QStringList &lstPaths,
                  qint64 nBytes)
{
    SCorpus corpus;
    corpus.strName = strName;
    corpus.strFileName = strFileName;
    for (int n = 0; !lstPaths.isEmpty() && corpus.nBytes < nBytes; ++n) {
        if (n == lstPaths.size()) {
            if (corpus.nBytes == 0)
                break;
            corpus.nBytesOnce = corpus.bRepeated ? corpus.nBytesOnce : corpus.nBytes;
            corpus.bRepeated = true;
            n = 0;
        }
        QFile file(lstPaths.at(n));
        if (!file.open(QIODevice::ReadOnly))
            continue;
        const QByteArray arr = file.read(nBytes - corpus.nBytes);
        corpus.nBytes += arr.size();
        corpus.lstLines += QString::fromUtf8(arr).split(QLatin1Char('\n'));
    }
    return corpus;
}
