// The list's actions on files, and how it follows the disk.
#include "browser/cwidgetfilelist.h"

#include "browser/cfilenode.h"
#include "browser/cfilesystemmodel.h"
#include "browser/cfolderfollower.h"
#include "browser/cmenulistview.h"

#include <QListView>
#include <QModelIndexList>
#include <QPersistentModelIndex>
#include <QScrollBar>

namespace {

// Keeps the topmost visible row in place while rows are added and removed above it, so that the row
// under the mouse stays. A list that shows its beginning continues to show it.
class CScrollKeeper
{
public:
    explicit CScrollKeeper(QListView *pView) : m_pView(pView), m_top(pView->indexAt(QPoint(2, 0)))
    {
        m_nTop = m_pView->visualRect(m_top).top();
    }

    ~CScrollKeeper()
    {
        QScrollBar *pBar = m_pView->verticalScrollBar();
        if (pBar->value() == 0 || !m_top.isValid())
            return;
        m_pView->doItemsLayout();
        pBar->setValue(pBar->value() + m_pView->visualRect(m_top).top() - m_nTop);
    }
    Q_DISABLE_COPY(CScrollKeeper)

private:
    QListView *m_pView;
    QPersistentModelIndex m_top;
    int m_nTop = 0;
};

} // namespace

void CWidgetFileList::onListed(const QString &strFolder, const QFileInfoList &lstFileInfos)
{
    if (strFolder != m_pModel->rootPath())
        return;
    const CScrollKeeper keeper(m_pListView);
    if (!m_pModel->mergeListing(strFolder, m_pFollower->takeNodes(lstFileInfos)))
        m_pFollower->schedule(); // Its first listing is on its way.
}

void CWidgetFileList::onDirectoryLoaded(const QString &strFolder)
{
    if (m_strToSelect.isEmpty() || strFolder != m_pModel->rootPath())
        return;
    const QList<CFileNode *> &lstNodes = m_pModel->rootNode()->m_lstChildren;
    for (int n = 0; n < lstNodes.size(); ++n) {
        if (lstNodes.at(n)->m_strPath != m_strToSelect)
            continue;
        m_strToSelect.clear();
        const QModelIndex index = m_pModel->index(n, 0);
        m_pListView->setCurrentIndex(index);
        m_pListView->scrollTo(index);
        if (m_bEditSelected)
            m_pListView->edit(index);
        m_bEditSelected = false;
        return;
    }
}

void CWidgetFileList::onRename()
{
    const QModelIndex index = m_pListView->currentIndex();
    if (index.isValid() && m_pModel->flags(index).testFlag(Qt::ItemIsEditable))
        m_pListView->edit(index);
    else
        emit statusMessage(tr("No file or folder is selected."));
}

void CWidgetFileList::onRenameAsked(const QModelIndex &index, const QString &strName)
{
    const CFileNode *pNode = m_pModel->nodeOf(index);
    if (!pNode)
        return;
    const CFileActions::SResult result = m_actions.rename(pNode->m_strPath, strName);
    report(result);
    if (result.bDone)
        m_strToSelect = result.lstMoves.constFirst().strTo;
}

void CWidgetFileList::onMoveToTrash()
{
    QStringList lstPaths;
    const QModelIndexList lstIndexes = m_pListView->selectionModel()->selectedIndexes();
    for (const QModelIndex &index : lstIndexes) {
        const CFileNode *pNode = m_pModel->nodeOf(index);
        if (!pNode->m_fileInfo.isRoot())
            lstPaths.append(pNode->m_strPath);
    }
    if (lstPaths.isEmpty())
        emit statusMessage(tr("No file or folder is selected."));
    else
        report(m_actions.moveToTrash(lstPaths));
}

void CWidgetFileList::onNewFolder()
{
    const CFileActions::SResult result = m_actions.makeFolder(rootPath());
    report(result);
    if (!result.bDone)
        return;
    m_strToSelect = result.lstMoves.constFirst().strTo;
    m_bEditSelected = true;
}

void CWidgetFileList::onTakeBack()
{
    const CFileActions::SResult result = m_actions.takeBack();
    report(result);
    if (result.bDone)
        m_strToSelect = result.lstMoves.constLast().strTo;
}

// For an open document a file in the trash counts as deleted, not as renamed.
void CWidgetFileList::report(const CFileActions::SResult &result)
{
    for (const CFileActions::SMove &move : result.lstMoves)
        if (result.bRenamed)
            emit fileRenamed(move.strFrom, move.strTo);
    if (!result.strMessage.isEmpty())
        emit statusMessage(result.strMessage);
    if (result.bDone)
        m_pFollower->refresh();
}
