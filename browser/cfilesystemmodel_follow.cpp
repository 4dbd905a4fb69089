// Brings the shown folder up to date row by row, so that the view keeps its selection and place.
#include "browser/cfilesystemmodel.h"

#include <QFileInfo>
#include <QHash>
#include <QThreadPool>

#include <algorithm>

namespace {

bool isSameKind(const QFileInfo &a, const QFileInfo &b)
{
    return a.isDir() == b.isDir() && a.isFile() == b.isFile() && a.isSymLink() == b.isSymLink()
        && a.exists() == b.exists();
}

// Deletes the nodes of a long list on another thread, because it takes too long for the GUI thread.
// Nobody else uses them, and they have no icons yet.
void dropElsewhere(FileNodes nodes)
{
    const auto pNodes = std::make_shared<FileNodes>(std::move(nodes));
    QThreadPool::globalInstance()->start([pNodes] { pNodes->clear(); });
}

} // namespace

bool CFileSystemModel::mergeListing(const QString &strPath, FileNodes nodes)
{
    if (!m_bListed || strPath != m_root.m_strPath)
        return false;
    removeMissing(nodes);
    insertNew(&nodes);
    dropElsewhere(std::move(nodes));
    // Numbers the rows only now. Nobody asks for a row's number in between, and numbering after
    // each change would take quadratic time.
    for (int n = 0; n < m_root.m_lstChildren.size(); ++n)
        m_root.m_lstChildren.at(n)->m_nRow = n;
    if (!m_root.m_lstChildren.isEmpty()) {
        emit dataChanged(index(0, 0), index(m_root.m_lstChildren.size() - 1, m_nColumns - 1));
        emit directoryLoaded(strPath);
    }
    return true;
}

// Removes from the end, so that the rows before keep their places; neighbours go together.
void CFileSystemModel::removeMissing(const FileNodes &nodes)
{
    QHash<QString, const CFileNode *> there;
    there.reserve(int(nodes.size()));
    for (const std::unique_ptr<CFileNode> &pNode : nodes)
        there.insert(pNode->m_strPath, pNode.get());
    const auto isThere = [&](const CFileNode &node) {
        const CFileNode *pNow = there.value(node.m_strPath);
        return pNow && isSameKind(pNow->m_fileInfo, node.m_fileInfo);
    };
    QList<CFileNode *> &lstChildren = m_root.m_lstChildren;
    for (int nEnd = lstChildren.size(); nEnd > 0;) {
        int nFirst = nEnd;
        while (nFirst > 0 && !isThere(*lstChildren.at(nFirst - 1)))
            --nFirst;
        if (nFirst < nEnd)
            removeRange(nFirst, nEnd - 1);
        nEnd = nFirst - 1;
    }
}

void CFileSystemModel::removeRange(int nFirst, int nLast)
{
    beginRemoveRows(QModelIndex(), nFirst, nLast);
    const auto itFirst = m_root.m_lstChildren.begin() + nFirst;
    const auto itEnd = m_root.m_lstChildren.begin() + nLast + 1;
    const QList<CFileNode *> lstGone = m_root.m_lstChildren.mid(nFirst, nLast - nFirst + 1);
    m_root.m_lstChildren.erase(itFirst, itEnd);
    endRemoveRows();
    qDeleteAll(lstGone);
}

// Both lists have the same order, so a new entry's place is after the known entry before it.
void CFileSystemModel::insertNew(FileNodes *pNodes)
{
    const QList<CFileNode *> lstKnown = m_root.m_lstChildren;
    QHash<QString, int> known;
    known.reserve(lstKnown.size());
    for (int n = 0; n < lstKnown.size(); ++n)
        known.insert(lstKnown.at(n)->m_strPath, n);
    int nRow = 0;
    int nInserted = 0;
    for (size_t n = 0; n < pNodes->size();) {
        const int nKnown = known.value(pNodes->at(n)->m_strPath, -1);
        if (nKnown >= 0) {
            // The old entry is deleted with the node that is not needed.
            std::swap(lstKnown.at(nKnown)->m_fileInfo, pNodes->at(n)->m_fileInfo);
            nRow = qMax(nRow, nKnown + nInserted + 1);
            ++n;
            continue;
        }
        size_t nEnd = n + 1;
        while (nEnd < pNodes->size() && !known.contains(pNodes->at(nEnd)->m_strPath))
            ++nEnd;
        insertRange(nRow, pNodes, n, nEnd);
        nRow += int(nEnd - n);
        nInserted += int(nEnd - n);
        n = nEnd;
    }
}

void CFileSystemModel::insertRange(int nRow, FileNodes *pNodes, size_t nFrom, size_t nTo)
{
    QList<CFileNode *> &lstChildren = m_root.m_lstChildren;
    const int nBefore = lstChildren.size();
    beginInsertRows(QModelIndex(), nRow, nRow + int(nTo - nFrom) - 1);
    for (size_t n = nFrom; n < nTo; ++n) {
        CFileNode *pNode = pNodes->at(n).release();
        pNode->m_pParent = &m_root;
        pNode->m_nRow = nRow + int(n - nFrom);
        lstChildren.append(pNode);
    }
    // Moves all of them to their places at once. One by one, each would move all later rows.
    std::rotate(lstChildren.begin() + nRow, lstChildren.begin() + nBefore, lstChildren.end());
    endInsertRows();
}
