#include "document/cfilewatch.h"

#include <QFileInfo>
#include <QSet>

CFileWatch::CFileWatch(QObject *pParent) : QObject(pParent)
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(300);
    const auto start = QOverload<>::of(&QTimer::start);
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, &m_timer, start);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, &m_timer, start);
    connect(&m_timer, &QTimer::timeout, this, &CFileWatch::mayHaveChanged);
}

void CFileWatch::setFiles(const QStringList &lstPaths)
{
    QSet<QString> setWanted;
    for (const QString &strPath : lstPaths) {
        const QFileInfo info(strPath);
        setWanted.insert(info.absolutePath());
        if (info.exists())
            setWanted.insert(strPath);
    }
    const QStringList lstNow = m_watcher.files() + m_watcher.directories();
    const QSet<QString> setNow(lstNow.cbegin(), lstNow.cend());
    const QStringList lstGone = (setNow - setWanted).values();
    const QStringList lstNew = (setWanted - setNow).values();
    if (!lstGone.isEmpty())
        m_watcher.removePaths(lstGone);
    if (!lstNew.isEmpty())
        m_watcher.addPaths(lstNew);
}
