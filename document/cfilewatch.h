#pragma once

#include <QFileSystemWatcher>
#include <QObject>
#include <QTimer>

class QStringList;

// Tells that something may have happened to one of the watched files, also when a file or its
// folder is removed or comes back. The documents find out what happened.
class CFileWatch : public QObject
{
    Q_OBJECT

public:
    explicit CFileWatch(QObject *pParent = nullptr);

    // Replaces the watched files. Call it again after each signal: the watch loses a file that is
    // replaced or deleted, and the file's folder tells when it is back.
    void setFiles(const QStringList &lstPaths);

signals:
    // Emitted once for a burst of changes.
    void mayHaveChanged();

private:
    QFileSystemWatcher m_watcher;
    QTimer m_timer; // Waits for the end of a burst.
};
