#include "web/localresources.h"

#include <QDir>
#include <QFileInfo>

namespace {

constexpr int g_nLevelsAbove = 2;

// Folders that hold more than one site.
bool isShared(const QDir &dir)
{
    if (dir.isRoot() || QFileInfo(dir.path()) == QFileInfo(QDir::tempPath()))
        return true;
    QDir dirHome = QDir::home();
    do {
        if (QFileInfo(dirHome.path()) == QFileInfo(dir.path()))
            return true;
    } while (dirHome.cdUp());
    return false;
}

// "//host" of a path into the network; empty for a path on this machine.
QString hostOf(const QString &strPath)
{
    // QDir::fromNativeSeparators() would take the beginning of "\\?\UNC\host" away.
    QString strClean = strPath;
    strClean.replace(QDir::separator(), QLatin1Char('/'));
    const bool bHost = strClean.startsWith(QLatin1String("//"));
    return bHost ? strClean.section(QLatin1Char('/'), 0, 2).toLower() : QString();
}

} // namespace

bool isOnMachineOf(const QString &strPage, const QString &strFile)
{
    return hostOf(strPage) == hostOf(strFile);
}

QString siteFolder(const QString &strPage)
{
    const QFileInfo info(strPage);
    const QString strFolder = info.isDir() ? info.filePath() : info.path();
    QDir dir(QFileInfo(strFolder).canonicalFilePath());
    if (strPage.isEmpty() || dir.path() == QLatin1String("."))
        return QString();
    for (int i = 0; i < g_nLevelsAbove; ++i) {
        QDir dirAbove = dir;
        if (!dirAbove.cdUp() || isShared(dirAbove))
            break;
        dir = dirAbove;
    }
    return dir.path();
}

bool mayReadLocal(const QString &strPage, const QString &strFile)
{
    if (!isOnMachineOf(strPage, strFile))
        return false;
    const QFileInfo info(strFile);
    if (!info.isFile())
        return false;
    const QFileInfo infoSite(siteFolder(strPage));
    if (infoSite.filePath().isEmpty())
        return false;
    QFileInfo infoCurrent(info.canonicalFilePath());
    while (!infoCurrent.fileName().startsWith(QLatin1Char('.'))) {
        const QFileInfo infoFolder(infoCurrent.path());
        if (infoFolder == infoSite)
            return true;
        if (infoFolder.filePath() == infoCurrent.filePath() || infoFolder.isRoot())
            return false;
        infoCurrent = infoFolder;
    }
    return false;
}
