#pragma once

#include "browser/cfolderreader.h"
#include "browser/filelisting.h"

#include <QElapsedTimer>
#include <QFileInfoList>
#include <QFileSystemWatcher>
#include <QObject>
#include <QTimer>

#include <memory>

// Watches one folder on the disk and lists it again after a change. Any number of changes cost one
// listing: it waits until they pause for a moment, or have gone on for too long. GUI thread only.
class CFolderFollower : public QObject
{
    Q_OBJECT

public:
    explicit CFolderFollower(QObject *pParent = nullptr);

    // Native separators; the empty path follows nothing.
    void follow(const QString &strFolder);
    // Lists the folder soon, as if it had changed.
    void schedule();
    // Lists the folder now.
    void refresh();
    // The nodes of a listing, in order; see CPreparedListings.
    FileNodes takeNodes(const QFileInfoList &lstFileInfos);

signals:
    void listed(QString strFolder, QFileInfoList lstFileInfos);

private:
    void watch();

    std::shared_ptr<CPreparedListings> m_pPrepared;
    CFolderReader m_reader;
    QFileSystemWatcher m_watcher;
    QTimer m_timerRest;
    QElapsedTimer m_sinceFirst; // The time of the first change that is not listed yet.
    QString m_strFolder;
};
