#pragma once

#include <QDateTime>
#include <QFileSystemWatcher>
#include <QHash>
#include <QObject>
#include <QTimer>

// Notices when another program writes, replaces or deletes a file. Compares what the system says of
// the file with what it said when the file was last read or written here, so that our own writing
// is never reported, and many changes in a row are reported once.
class CFileWatch : public QObject
{
    Q_OBJECT

public:
    explicit CFileWatch(QObject *pParent);

    // The file as it is now is what we know. Begins to watch it where it was not watched.
    void remember(const QString &strPath);
    void forget(const QString &strPath);

    // True when the file is not as remembered. A file that is not watched counts as unchanged.
    bool isChanged(const QString &strPath) const;

public slots:
    // Looks at every file; for places where the system tells nothing, network drives for example.
    void check();

signals:
    // Once per change, until remember() is called.
    void changed(QString strPath);

private:
    struct SState
    {
        bool bExists = false;
        qint64 nSize = 0;
        QDateTime modified;
        bool operator==(const SState &other) const
        {
            return bExists == other.bExists && nSize == other.nSize && modified == other.modified;
        }
    };
    struct SFile
    {
        SState known;
        bool bReported = false;
    };

    static SState stateOf(const QString &strPath);
    void watch(const QString &strPath);

    QFileSystemWatcher m_watcher;
    QTimer m_timer; // Lets a burst of changes end first.
    QHash<QString, SFile> m_files;
};
