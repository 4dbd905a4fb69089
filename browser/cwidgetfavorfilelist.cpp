#include "browser/cwidgetfavorfilelist.h"

#include "browser/cwidgetfavoritefolder.h"
#include "browser/cwidgetfilelist.h"

#include <QMessageBox>
#include <QSplitter>
#include <QVBoxLayout>

CWidgetFavorFileList::CWidgetFavorFileList(QWidget *pParent) : QWidget(pParent)
{
    auto *pSplitter = new QSplitter(Qt::Vertical, this);
    m_pFileList = new CWidgetFileList(pSplitter);
    m_pFavorite = new CWidgetFavoriteFolder(pSplitter);
    auto *pLayout = new QVBoxLayout(this);
    pLayout->setContentsMargins(0, 0, 0, 0);
    pLayout->setSpacing(0);
    pLayout->addWidget(pSplitter);
    setFocusProxy(m_pFileList->focusProxy());

    connect(m_pFavorite, &CWidgetFavoriteFolder::clickAdd, this,
            &CWidgetFavorFileList::onAddFavorFolder);
    connect(m_pFavorite, &CWidgetFavoriteFolder::dbClickFolder, m_pFileList,
            &CWidgetFileList::setRootPath);
    connect(m_pFileList, &CWidgetFileList::dbClickFile, this, &CWidgetFavorFileList::dbClickFile);
    connect(m_pFileList, &CWidgetFileList::rootPathChanged, this,
            &CWidgetFavorFileList::rootPathChanged);
    connect(m_pFileList, &CWidgetFileList::fileSelectionChanged, this,
            &CWidgetFavorFileList::fileSelectionChanged);
    connect(m_pFileList, &CWidgetFileList::fileRenamed, this, &CWidgetFavorFileList::fileRenamed);
    connect(m_pFileList, &CWidgetFileList::listing, this, &CWidgetFavorFileList::listing);
    connect(m_pFileList, &CWidgetFileList::statusMessage, this,
            &CWidgetFavorFileList::statusMessage);
}

QString CWidgetFavorFileList::rootPath() const
{
    return m_pFileList->rootPath();
}

void CWidgetFavorFileList::setRootPath(const QString &strPath)
{
    m_pFileList->setRootPath(strPath);
}

bool CWidgetFavorFileList::hasFocusList() const
{
    return m_pFileList->listHasFocus() || m_pFavorite->listHasFocus();
}

bool CWidgetFavorFileList::openSelection()
{
    if (m_pFileList->listHasFocus())
        return m_pFileList->openSelection();
    return m_pFavorite->listHasFocus() && m_pFavorite->openSelection();
}

void CWidgetFavorFileList::onAddFavorFolder()
{
    const QString strFolder = m_pFileList->rootPath();
    if (strFolder.isEmpty())
        QMessageBox::warning(this, tr("No selected folder"),
                             tr("Please select a folder on Folder Browser."), QMessageBox::Ok);
    else
        m_pFavorite->addFolder(strFolder);
}

void CWidgetFavorFileList::stopListing()
{
    m_pFileList->stopListing();
}
