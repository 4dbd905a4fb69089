#pragma once

#include <QFileIconProvider>
#include <QFileInfo>
#include <QStringList>
#include <QThread>

#include <atomic>
#include <condition_variable>
#include <mutex>

// Lists folders on a thread of its own, so that a slow disk never blocks the windows.
//
// fetch() asks for one folder. With sub-folder scanning on, the pass continues breadth-first
// through every folder found, one per 100 ms. A pass ends when nothing is left or after stop().
// Call all functions on the GUI thread; the signals come from the reader's thread. The owner stops
// and waits for a running pass before it destroys the reader.
class CFileInfoGatherer : public QThread
{
    Q_OBJECT

public:
    explicit CFileInfoGatherer(QObject *pParent = nullptr);

    void setShowDrives(bool bVal);
    void setDirsOnly(bool bVal);
    void setSkipHidden(bool bVal);
    void setScanSubDirs(bool bVal) { m_bScanSubDirs = bVal; }
    bool showDrives() const;
    bool dirsOnly() const;
    bool skipHidden() const;
    bool scanSubDirs() const { return m_bScanSubDirs; }
    const QFileIconProvider &iconProvider() const { return m_iconProvider; }

    // Asks for the entries of a folder; the empty path stands for the drives. While a pass runs,
    // this only ends that pass: see isFetchMissed().
    void fetch(const QString &strPath);

    // True if the last fetch() found a running pass and ended it. Its folder then has to be fetched
    // again once the reader is idle.
    bool isFetchMissed() const;

    void stop();

    // Asks a running pass to end and waits for that, at most 5000 ms. Returns at once when a stop
    // was asked for already.
    void stopAndWait();

signals:
    // The unsorted entries of a folder; after a stop not all of them.
    void newListOfFiles2(QString directory, QFileInfoList lstFileInfo);
    void directoryLoaded(QString path);

protected:
    void run() override;

private:
    bool flag(const bool &bMember) const;
    void setFlag(bool *pMember, bool bVal);
    bool takeNext(QString *pDirectory);
    void listDirectory(const QString &strDirectory);
    void listDrives();
    QFileInfoList readEntries(const QString &strDirectory);

    QString m_strPath;
    QStringList m_lstPaths; // Only run() and the functions that it calls use it.
    mutable std::mutex m_mutex;
    std::condition_variable m_condition;
    QFileIconProvider m_iconProvider; // For the model, on the GUI thread.
    std::atomic<bool> m_bAbort = true; // Also true while idle.
    bool m_bShowDrives = false;
    bool m_bDirsOnly = false;
    bool m_bSkipHidden = false;
    std::atomic<bool> m_bScanSubDirs = true;
    bool m_bFetchMissed = false;
    // If the system wakes the thread early, the wait continues until this is false.
    bool m_bInPass = false;
};
