#include "mainwindow/cfilewatch.h"

#include <QFileInfo>

CFileWatch::CFileWatch(QObject *pParent) : QObject(pParent)
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(300);
    const auto start = QOverload<>::of(&QTimer::start);
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, &m_timer, start);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, &m_timer, start);
    connect(&m_timer, &QTimer::timeout, this, &CFileWatch::check);
}

CFileWatch::SState CFileWatch::stateOf(const QString &strPath)
{
    const QFileInfo info(strPath);
    SState state;
    state.bExists = info.isFile();
    if (state.bExists) {
        state.nSize = info.size();
        state.modified = info.lastModified();
    }
    return state;
}

void CFileWatch::watch(const QString &strPath)
{
    // A file that is replaced or deleted drops out of the watcher; its folder tells when it is
    // back.
    m_watcher.addPath(QFileInfo(strPath).absolutePath());
    if (QFileInfo::exists(strPath))
        m_watcher.addPath(strPath);
}

void CFileWatch::remember(const QString &strPath)
{
    if (strPath.isEmpty())
        return;
    m_files.insert(strPath, {stateOf(strPath), false});
    watch(strPath);
}

void CFileWatch::forget(const QString &strPath)
{
    if (m_files.remove(strPath) == 0)
        return;
    m_watcher.removePath(strPath);
    const QString strFolder = QFileInfo(strPath).absolutePath();
    for (auto it = m_files.cbegin(); it != m_files.cend(); ++it) {
        if (QFileInfo(it.key()).absolutePath() == strFolder)
            return;
    }
    m_watcher.removePath(strFolder);
}

bool CFileWatch::isChanged(const QString &strPath) const
{
    const auto it = m_files.constFind(strPath);
    return it != m_files.constEnd() && !(it->known == stateOf(strPath));
}

void CFileWatch::check()
{
    QStringList lstChanged;
    for (auto it = m_files.begin(); it != m_files.end(); ++it) {
        watch(it.key());
        if (it->bReported || it->known == stateOf(it.key()))
            continue;
        it->bReported = true;
        lstChanged.append(it.key());
    }
    for (const QString &strPath : qAsConst(lstChanged))
        emit changed(strPath);
}
