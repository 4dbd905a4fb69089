// The list of entries: its selection, double clicks and context menu.
#include "browser/cwidgetfilelist.h"

#include "app/commonhelpers.h"
#include "browser/cfilenode.h"
#include "browser/cfilesystemmodel.h"
#include "browser/cmenulistview.h"

#include <QDesktopServices>
#include <QModelIndexList>
#include <QUrl>

bool CWidgetFileList::listHasFocus() const
{
    return m_pListView->hasFocus();
}

void CWidgetFileList::onDbClickListItem(const QModelIndex &idx)
{
    m_timerSelection.stop();
    const CFileNode *pNode = m_pModel->nodeOf(idx);
    if (!pNode)
        return;
    // A copy, since entering a folder deletes the node.
    const QString strPath = pNode->m_strPath;
    if (pNode->m_fileInfo.isFile())
        emit dbClickFile(strPath);
    else
        enterFolder(strPath);
}

bool CWidgetFileList::openSelection()
{
    QStringList lstFiles;
    QString strFolder;
    const QModelIndexList lstIndexes = m_pListView->selectionModel()->selectedIndexes();
    for (const QModelIndex &index : lstIndexes) {
        const CFileNode *pNode = m_pModel->nodeOf(index);
        if (pNode->m_fileInfo.isFile())
            lstFiles.append(pNode->m_strPath);
        else if (strFolder.isEmpty())
            strFolder = pNode->m_strPath;
    }
    // Emitted only now, because the receiver opens a file and may change the list.
    for (const QString &strFile : qAsConst(lstFiles))
        emit dbClickFile(strFile);
    if (!strFolder.isEmpty())
        enterFolder(strFolder);
    return !lstIndexes.isEmpty();
}

void CWidgetFileList::onFileSelectionChanged()
{
    m_timerSelection.start();
}

void CWidgetFileList::onTimeOutFileSelectionChanged()
{
    m_timerSelection.stop();
    const QString strPath = firstSelectedPath();
    if (!strPath.isEmpty())
        emit fileSelectionChanged(strPath);
}

QString CWidgetFileList::firstSelectedPath() const
{
    const QModelIndexList lstIndexes = m_pListView->selectionModel()->selectedIndexes();
    const CFileNode *pNode = lstIndexes.isEmpty() ? nullptr : m_pModel->nodeOf(lstIndexes.first());
    return pNode ? pNode->m_strPath : QString();
}

void CWidgetFileList::onClickAction(const QString &str)
{
    if (str == m_strActExplore)
        exploreFile();
    else if (str == m_strActOpenDefault)
        openFileByDefault();
}

void CWidgetFileList::exploreFile()
{
    const QString strPath = firstSelectedPath();
    if (!strPath.isEmpty())
        openFilePosition(strPath);
}

void CWidgetFileList::openFileByDefault()
{
    const QString strPath = firstSelectedPath();
    if (!strPath.isEmpty())
        QDesktopServices::openUrl(QUrl::fromLocalFile(strPath));
}
