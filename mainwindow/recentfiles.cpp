#include "mainwindow/recentfiles.h"

#include <QDir>

QStringList withRecentFile(QStringList lstFiles, const QString &strPath)
{
    const QString strNative = QDir::toNativeSeparators(strPath);
    lstFiles.removeOne(strNative);
    lstFiles.prepend(strNative);
    while (lstFiles.size() > g_nMaxRecentFiles)
        lstFiles.removeLast();
    return lstFiles;
}
