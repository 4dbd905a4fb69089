#pragma once

#include "browser/cfileinfogatherer.h"

#include <QFileInfoList>
#include <QObject>
#include <QString>

#include <functional>
#include <memory>

// Lists one folder after another on a reader's thread. A request never interrupts a running
// listing; of the requests that come meanwhile only the last is answered. GUI thread only.
class CFolderReader : public QObject
{
    Q_OBJECT

public:
    // Called on the reader's thread with each listing, before listed() comes for it; it may outlive
    // the object.
    using Prepare = std::function<void(const QFileInfoList &)>;

    explicit CFolderReader(bool bDirsOnly, const Prepare &prepare = nullptr,
                           QObject *pParent = nullptr);
    // Waits for the reader as CFileSystemModel does.
    ~CFolderReader() override;

    void read(const QString &strFolder);

    // Ends a reader and waits for it, at most 5000 ms. A reader that hangs longer on a dead network
    // disk is left behind: destroying it would crash the program, and waiting would freeze it.
    static void release(std::unique_ptr<CFileInfoGatherer> pGatherer);

signals:
    // Unsorted, without hidden entries; empty for a folder that cannot be read.
    void listed(QString strFolder, QFileInfoList lstFileInfos);

private:
    void onFinished();

    std::unique_ptr<CFileInfoGatherer> m_pGatherer;
    QString m_strNext;
    bool m_bNext = false;
};
