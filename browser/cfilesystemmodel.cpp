#include "browser/cfilesystemmodel.h"

#include "browser/cfolderreader.h"

#include <QCoreApplication>
#include <QEvent>
#include <QFileInfo>
#include <QFileInfoList>
#include <QIcon>

namespace {

CFileNode *findBelow(CFileNode *pNode, const QString &strPath)
{
    if (pNode->m_strPath == strPath)
        return pNode;
    for (CFileNode *pChild : qAsConst(pNode->m_lstChildren))
        if (CFileNode *pFound = findBelow(pChild, strPath))
            return pFound;
    return nullptr;
}

void numberRows(CFileNode *pParent, int nFrom)
{
    for (int n = nFrom; n < pParent->m_lstChildren.size(); ++n)
        pParent->m_lstChildren.at(n)->m_nRow = n;
}

} // namespace

CFileSystemModel::CFileSystemModel(QObject *pParent)
    : QAbstractItemModel(pParent),
      m_pGatherer(std::make_unique<CFileInfoGatherer>()),
      m_pPrepared(std::make_shared<CPreparedListings>())
{
    qRegisterMetaType<QFileInfoList>("QFileInfoList");
    m_pGatherer->setShowDrives(true);
    m_pGatherer->setSkipHidden(true);
    m_pGatherer->setDirsOnly(false);
    // Runs first on the reader's thread, then here. The lambda keeps its data alive, because a
    // stuck reader may outlive the model.
    connect(
        m_pGatherer.get(), &CFileInfoGatherer::newListOfFiles2, m_pGatherer.get(),
        [pPrepared = m_pPrepared](const QString &, const QFileInfoList &lstFileInfos) {
            pPrepared->prepare(lstFileInfos);
        },
        Qt::DirectConnection);
    connect(m_pGatherer.get(), &CFileInfoGatherer::newListOfFiles2, this,
            &CFileSystemModel::onNewListOfFiles);
    connect(m_pGatherer.get(), &QThread::finished, this, &CFileSystemModel::onReaderFinished);
}

CFileSystemModel::~CFileSystemModel()
{
    m_pGatherer->disconnect(this);
    removeRootChildren();
    CFolderReader::release(std::move(m_pGatherer));
}

void CFileSystemModel::setRootPath(const QString &strPath, bool bFetch)
{
    // A finished listing still in the event queue belongs to the old rows. For the same folder it
    // would show every entry twice.
    QCoreApplication::removePostedEvents(this, QEvent::MetaCall);
    m_pPrepared->clear();
    removeRootChildren();
    m_bListed = false;
    const QFileInfo info(strPath);
    const bool bFile = info.isFile();
    m_strCurrentFile = bFile ? info.fileName() : QString();
    m_root.setPath(bFile ? info.absolutePath() : strPath);
    if (bFetch)
        m_pGatherer->fetch(m_root.m_strPath);
}

void CFileSystemModel::onReaderFinished()
{
    if (m_pGatherer->isRunning())
        return;
    if (m_pGatherer->isFetchMissed())
        emit fetchMissed();
    else
        emit fetchEnded();
}

void CFileSystemModel::removeRootChildren()
{
    if (m_root.m_lstChildren.isEmpty())
        return;
    beginRemoveRows(QModelIndex(), 0, m_root.m_lstChildren.size() - 1);
    const QList<CFileNode *> lstChildren = m_root.m_lstChildren;
    m_root.m_lstChildren.clear();
    endRemoveRows();
    qDeleteAll(lstChildren);
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): as the queued signal carries them.
void CFileSystemModel::onNewListOfFiles(QString strPath, QFileInfoList lstFileInfos)
{
    FileNodes nodes = m_pPrepared->take(lstFileInfos);
    if (strPath == m_root.m_strPath)
        m_bListed = true;
    CFileNode *pParent = nodes.empty() ? nullptr : findNode(strPath);
    if (!pParent)
        return;
    const int nFirst = pParent->m_lstChildren.size();
    beginInsertRows(indexOf(pParent), nFirst, nFirst + int(nodes.size()) - 1);
    pParent->m_lstChildren.reserve(nFirst + int(nodes.size()));
    for (std::unique_ptr<CFileNode> &pNode : nodes) {
        pNode->m_pParent = pParent;
        pParent->m_lstChildren.append(pNode.release());
    }
    numberRows(pParent, nFirst);
    endInsertRows();
    emit directoryLoaded(strPath);
}

void CFileSystemModel::refreshNode(CFileNode *pNode)
{
    pNode->m_fileInfo.refresh();
    pNode->m_icon = QIcon();
    const QModelIndex first = indexOf(pNode);
    if (first.isValid())
        emit dataChanged(first, indexOf(pNode, m_nColumns - 1));
}

void CFileSystemModel::insertNode(CFileNode *pNode, CFileNode *pParent, int nRow)
{
    CFileNode *pOwner = pParent ? pParent : &m_root;
    beginInsertRows(indexOf(pOwner), nRow, nRow);
    pNode->m_pParent = pOwner;
    pOwner->m_lstChildren.insert(nRow, pNode);
    numberRows(pOwner, nRow);
    endInsertRows();
}

void CFileSystemModel::appendNode(CFileNode *pNode, CFileNode *pParent)
{
    insertNode(pNode, pParent, (pParent ? pParent : &m_root)->m_lstChildren.size());
}

void CFileSystemModel::removeNode(CFileNode *pNode)
{
    CFileNode *pParent = pNode->m_pParent;
    if (!pParent)
        return; // The root stays.
    const int nRow = pNode->m_nRow;
    beginRemoveRows(indexOf(pParent), nRow, nRow);
    pParent->m_lstChildren.removeAt(nRow);
    numberRows(pParent, nRow);
    endRemoveRows();
    delete pNode;
}

CFileNode *CFileSystemModel::findNode(const QString &strPath)
{
    return findBelow(&m_root, strPath);
}

void CFileSystemModel::setColumnCount(int nColumns)
{
    beginResetModel();
    m_nColumns = nColumns;
    endResetModel();
}

QModelIndex CFileSystemModel::indexOf(const CFileNode *pNode, int nColumn) const
{
    if (!pNode || pNode == &m_root)
        return {};
    return createIndex(pNode->m_nRow, nColumn, const_cast<CFileNode *>(pNode));
}
