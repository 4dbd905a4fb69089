#include "browser/cfilesystemmodel.h"

#include "app/commonhelpers.h"
#include "app/plaintext.h"
#include "app/platform.h"

#include <QBrush>
#include <QDateTime>
#include <QFileInfo>
#include <QIcon>
#include <QMimeData>
#include <QUrl>

CFileNode *CFileSystemModel::nodeOf(const QModelIndex &index) const
{
    return index.isValid() ? static_cast<CFileNode *>(index.internalPointer()) : nullptr;
}

QModelIndex CFileSystemModel::index(int nRow, int nColumn, const QModelIndex &parent) const
{
    const CFileNode *pNode = parent.isValid() ? nodeOf(parent) : &m_root;
    if (!pNode || nRow < 0 || nRow >= pNode->m_lstChildren.size() || nColumn < 0
        || nColumn >= m_nColumns)
        return {};
    return createIndex(nRow, nColumn, pNode->m_lstChildren.at(nRow));
}

QModelIndex CFileSystemModel::parent(const QModelIndex &index) const
{
    const CFileNode *pNode = nodeOf(index);
    return pNode ? indexOf(pNode->m_pParent) : QModelIndex();
}

int CFileSystemModel::rowCount(const QModelIndex &parent) const
{
    const CFileNode *pNode = nodeOf(parent);
    return (pNode ? pNode : &m_root)->m_lstChildren.size();
}

int CFileSystemModel::columnCount(const QModelIndex &) const
{
    return m_nColumns;
}

QVariant CFileSystemModel::data(const QModelIndex &index, int nRole) const
{
    CFileNode *pNode = nodeOf(index);
    if (!pNode)
        return {};
    switch (nRole) {
    case Qt::DisplayRole:
        return displayData(*pNode, index.column());
    case Qt::EditRole:
        return pNode->m_fileInfo.fileName();
    case Qt::DecorationRole:
        return index.column() == 0 ? QVariant(shownIcon(pNode)) : QVariant();
    case Qt::ToolTipRole:
        return plainToolTip(visibleName(pNode->m_strPath));
    case Qt::ForegroundRole:
        switch (pNode->m_nState) {
        case 2:
            return QBrush(Qt::blue);
        case 3:
            return QBrush(Qt::darkRed);
        case 4:
            return QBrush(Qt::red);
        default:
            return {};
        }
    default:
        return {};
    }
}

QVariant CFileSystemModel::displayData(const CFileNode &node, int nColumn) const
{
    const QFileInfo &info = node.m_fileInfo;
    switch (nColumn) {
    case 0:
        if (info.isRoot())
            return node.m_strPath;
        return visibleName(info.bundleName().isEmpty() ? info.fileName() : info.bundleName());
    case 1:
        return info.isFile() ? QVariant(visibleName(info.suffix())) : QVariant();
    case 2:
        return info.isFile() ? QVariant(getSizeText(info.size())) : QVariant();
    case 3:
        return getDateText(info.lastModified());
    default:
        return {};
    }
}

// A desktop's icon may depend on the content of the file, which then has to be read. So icons are
// looked up only for visible rows.
QIcon CFileSystemModel::shownIcon(CFileNode *pNode) const
{
    if (pNode->m_icon.isNull()) {
        pNode->m_icon = pNode->m_fileInfo.exists() ? iconOf(pNode->m_fileInfo)
                                                   : QIcon(QStringLiteral(":/res/link_un.png"));
    }
    return pNode->m_icon;
}

QIcon CFileSystemModel::iconOf(const QFileInfo &info) const
{
    const QString strKind = Platform::fileIconKind(info);
    if (strKind.isEmpty())
        return m_pGatherer->iconProvider().icon(info);
    QIcon &icon = m_icons[strKind];
    if (icon.isNull())
        icon = m_pGatherer->iconProvider().icon(info);
    return icon;
}

Qt::ItemFlags CFileSystemModel::flags(const QModelIndex &index) const
{
    const CFileNode *pNode = nodeOf(index);
    const Qt::ItemFlags base = QAbstractItemModel::flags(index);
    if (!pNode)
        return base;
    return base | Qt::ItemIsDragEnabled
        | (pNode->m_fileInfo.isRoot() ? Qt::NoItemFlags : Qt::ItemIsEditable);
}

QStringList CFileSystemModel::mimeTypes() const
{
    return {QStringLiteral("text/uri-list")};
}

QMimeData *CFileSystemModel::mimeData(const QModelIndexList &lstIndexes) const
{
    QList<QUrl> lstUrls;
    for (const QModelIndex &index : lstIndexes)
        if (const CFileNode *pNode = nodeOf(index))
            lstUrls.append(QUrl::fromLocalFile(pNode->m_strPath));
    auto *pData = new QMimeData;
    pData->setUrls(lstUrls);
    return pData;
}

Qt::DropActions CFileSystemModel::supportedDragActions() const
{
    return Qt::CopyAction | Qt::LinkAction;
}

QVariant CFileSystemModel::headerData(int nSection, Qt::Orientation orientation, int nRole) const
{
    if (nRole == Qt::DecorationRole || nRole == Qt::TextAlignmentRole)
        return int(Qt::AlignLeft);
    if (nRole != Qt::DisplayRole || orientation != Qt::Horizontal)
        return QAbstractItemModel::headerData(nSection, orientation, nRole);
    switch (nSection) {
    case 0:
        return tr("Name");
    case 1:
        return tr("Ext. Name");
    case 2:
        return tr("Size");
    case 3:
        return tr("Date Modified");
    default:
        return {};
    }
}
