#pragma once

#include <QFileSystemWatcher>
#include <QObject>
#include <QTimer>

class QStringList;

// Tells that something may have happened to one of the files it watches, also when a file or its
// folder comes and goes. What did happen, the documents find out.
class CFileWatch : public QObject
{
    Q_OBJECT

public:
    explicit CFileWatch(QObject *pParent = nullptr);

    // Replaces the watched files. Call it again after each signal: a file that is replaced or
    // deleted drops out, and its folder tells when it is back.
    void setFiles(const QStringList &lstPaths);

signals:
    // Emitted once for a burst of changes.
    void mayHaveChanged();

private:
    QFileSystemWatcher m_watcher;
    QTimer m_timer; // Lets a burst end first.
};
