#pragma once

#include "browser/cfileinfogatherer.h"
#include "browser/cfilenode.h"
#include "browser/filelisting.h"

#include <QAbstractItemModel>
#include <QFileInfo>
#include <QFileInfoList>
#include <QHash>
#include <QIcon>

#include <memory>

// The entries of one folder, as its own reader thread (see CFileInfoGatherer) delivers them.
//
// A tree: listings are put below the node of their path and are never merged with what is there;
// only setRootPath() clears, and only mergeListing() brings up to date. GUI thread only.
class CFileSystemModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    explicit CFileSystemModel(QObject *pParent = nullptr);
    // Waits for the reader, at most 5000 ms. A reader that hangs longer on a dead network disk is
    // left behind.
    ~CFileSystemModel() override;

    // Shows a folder. For a file it shows the file's folder and remembers the name. The empty path
    // stands for the drives.
    void setRootPath(const QString &strPath, bool bFetch);
    QString rootPath() const { return m_root.m_strPath; }
    CFileNode *rootNode() { return &m_root; }
    QString currentFile() const { return m_strCurrentFile; }

    void setShowDrives(bool bVal) { m_pGatherer->setShowDrives(bVal); }
    void setDirsOnly(bool bVal) { m_pGatherer->setDirsOnly(bVal); }
    void setSkipHidden(bool bVal) { m_pGatherer->setSkipHidden(bVal); }
    void setScanSubDirs(bool bVal) { m_pGatherer->setScanSubDirs(bVal); }
    bool showDrives() const { return m_pGatherer->showDrives(); }
    bool dirsOnly() const { return m_pGatherer->dirsOnly(); }
    bool skipHidden() const { return m_pGatherer->skipHidden(); }
    bool scanSubDirs() const { return m_pGatherer->scanSubDirs(); }
    void stop() { m_pGatherer->stop(); }

    // Brings the shown folder's rows up to date with a new listing of it: entries that still exist
    // keep their selection. Gives false and changes nothing while the folder's first listing is on
    // its way, or if another folder is shown.
    bool mergeListing(const QString &strPath, FileNodes nodes);

    // The icon of the file icon provider, which is asked once for each kind of file.
    QIcon iconOf(const QFileInfo &info) const;
    void refreshNode(CFileNode *pNode);
    // Both take ownership of the node. A null parent stands for the root.
    void insertNode(CFileNode *pNode, CFileNode *pParent, int nRow);
    void appendNode(CFileNode *pNode, CFileNode *pParent);
    void removeNode(CFileNode *pNode);
    CFileNode *findNode(const QString &strPath);
    // The node of an index, null for an invalid one.
    CFileNode *nodeOf(const QModelIndex &index) const;

    void setColumnCount(int nColumns);

    QModelIndex index(int nRow, int nColumn, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &index) const override;
    using QObject::parent;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int nRole = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    QStringList mimeTypes() const override;
    // The addresses of the files, for dropping them elsewhere. They can only be copied: a drop must
    // never move a file away.
    QMimeData *mimeData(const QModelIndexList &lstIndexes) const override;
    Qt::DropActions supportedDragActions() const override;
    QVariant headerData(int nSection, Qt::Orientation orientation,
                        int nRole = Qt::DisplayRole) const override;

signals:
    void directoryLoaded(QString path);
    // The reader is idle again, but the last setRootPath() found it busy, so its folder has to be
    // asked for again.
    void fetchMissed();
    // The reader is idle: the listing of the last setRootPath() has arrived, as far as it got.
    void fetchEnded();

public slots:
    void onNewListOfFiles(QString strPath, QFileInfoList lstFileInfos);

private:
    void onReaderFinished();
    void removeRootChildren();
    void removeMissing(const FileNodes &nodes);
    void removeRange(int nFirst, int nLast);
    void insertNew(FileNodes *pNodes);
    void insertRange(int nRow, FileNodes *pNodes, size_t nFrom, size_t nTo);
    QModelIndex indexOf(const CFileNode *pNode, int nColumn = 0) const;
    QVariant displayData(const CFileNode &node, int nColumn) const;
    QIcon shownIcon(CFileNode *pNode) const;

    CFileNode m_root;
    std::unique_ptr<CFileInfoGatherer> m_pGatherer;
    std::shared_ptr<CPreparedListings> m_pPrepared;
    mutable QHash<QString, QIcon> m_icons; // By kind of file.
    int m_nColumns = 1;
    bool m_bListed = false; // The root's first listing has come.
    QString m_strCurrentFile;
};
