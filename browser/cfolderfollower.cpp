#include "browser/cfolderfollower.h"

#include <QFileInfo>
#include <QFileInfoList>

namespace {

const int g_nRest = 200; // Milliseconds.
const int g_nLongest = 2000;

} // namespace

CFolderFollower::CFolderFollower(QObject *pParent)
    : QObject(pParent),
      m_pPrepared(std::make_shared<CPreparedListings>()),
      m_reader(false,
               [pPrepared = m_pPrepared](const QFileInfoList &lst) { pPrepared->prepare(lst); })
{
    m_timerRest.setSingleShot(true);
    connect(&m_timerRest, &QTimer::timeout, this, &CFolderFollower::refresh);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, &CFolderFollower::schedule);
    connect(&m_reader, &CFolderReader::listed, this,
            [this](const QString &strFolder, const QFileInfoList &lstFileInfos) {
                if (strFolder == m_strFolder)
                    emit listed(strFolder, lstFileInfos);
                m_pPrepared->clear();
            });
}

void CFolderFollower::follow(const QString &strFolder)
{
    m_timerRest.stop();
    if (strFolder != m_strFolder && !m_watcher.directories().isEmpty())
        m_watcher.removePaths(m_watcher.directories());
    m_strFolder = strFolder;
    watch();
}

// Watches a known folder again as well: it may have gone and come back. The watcher forgets a
// folder that goes, but not on Windows.
void CFolderFollower::watch()
{
    const bool bWatched = !m_watcher.directories().isEmpty();
    const bool bThere = QFileInfo(m_strFolder).isDir();
    if (bWatched && !bThere)
        m_watcher.removePaths(m_watcher.directories());
    if (!bWatched && bThere)
        m_watcher.addPath(m_strFolder);
}

void CFolderFollower::schedule()
{
    if (!m_timerRest.isActive())
        m_sinceFirst.start();
    const qint64 nLeft = g_nLongest - m_sinceFirst.elapsed();
    m_timerRest.start(int(qBound(qint64(0), nLeft, qint64(g_nRest))));
}

void CFolderFollower::refresh()
{
    m_timerRest.stop();
    if (m_strFolder.isEmpty())
        return;
    watch();
    m_reader.read(m_strFolder);
}

FileNodes CFolderFollower::takeNodes(const QFileInfoList &lstFileInfos)
{
    return m_pPrepared->take(lstFileInfos);
}
