#include "mainwindow/recentfiles.h"

#include "app/platform.h"

#include <QDir>

#include <algorithm>

QStringList withRecentFile(QStringList lstFiles, const QString &strPath)
{
    const QString strNative = QDir::toNativeSeparators(strPath);
    const auto it = std::find_if(lstFiles.begin(), lstFiles.end(), [&](const QString &strFile) {
        return Platform::isSamePath(strFile, strNative);
    });
    if (it != lstFiles.end())
        lstFiles.erase(it);
    lstFiles.prepend(strNative);
    while (lstFiles.size() > g_nMaxRecentFiles)
        lstFiles.removeLast();
    return lstFiles;
}
