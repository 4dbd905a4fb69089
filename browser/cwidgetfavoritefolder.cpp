#include "browser/cwidgetfavoritefolder.h"

#include "app/commonhelpers.h"
#include "app/csettings.h"
#include "app/plaintext.h"
#include "app/platform.h"
#include "browser/cmenulistwidget.h"
#include "browser/flatbutton.h"
#include "widgets/typedkeys.h"

#include <QDir>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidgetItem>
#include <QMessageBox>
#include <QPushButton>
#include <QStyledItemDelegate>
#include <QVBoxLayout>

#include <algorithm>

namespace {

// The entries' texts are the paths to open, but hidden characters in them are shown.
class CFolderDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QString displayText(const QVariant &value, const QLocale &) const override
    {
        return visibleName(value.toString());
    }
};

} // namespace

CWidgetFavoriteFolder::CWidgetFavoriteFolder(QWidget *pParent)
    : QWidget(pParent), m_strActExplore(tr("Open position of file/folder"))
{
    const QString strTitle = tr("Main Folder List");
    auto *pLabel = new QLabel(QLatin1Char(' ') + strTitle, this);
    pLabel->setObjectName(QStringLiteral("labelFavorites"));
    pLabel->setStyleSheet(QStringLiteral("QLabel{background-color:#ccc;}"));
    // Dark on that light in every desktop palette.
    QPalette palLabel = pLabel->palette();
    palLabel.setColor(QPalette::WindowText, Qt::black);
    pLabel->setPalette(palLabel);
    createList();
    m_pListFolders->setAccessibleName(strTitle);
    pLabel->setBuddy(m_pListFolders);

    auto *pLayout = new QVBoxLayout(this);
    pLayout->setContentsMargins(0, 0, 0, 0);
    pLayout->setSpacing(0);
    pLayout->addWidget(pLabel);
    pLayout->addLayout(createBar());
    pLayout->addWidget(m_pListFolders);
    const QStringList lstFolders = g_pSettings->getFavorFolders();
    for (const QString &strPath : lstFolders)
        insertFolder(m_pListFolders->count(), strPath);
}

CWidgetFavoriteFolder::~CWidgetFavoriteFolder()
{
    g_pSettings->setFavorFolders(folders());
}

QBoxLayout *CWidgetFavoriteFolder::createBar()
{
    m_pBtnAdd = createFlatButton(QStringLiteral(":/res/folder_add.png"), tr("Add"), this);
    connect(m_pBtnAdd, &QPushButton::clicked, this, &CWidgetFavoriteFolder::clickAdd);
    m_pBtnRemove = createFlatButton(QStringLiteral(":/res/folder_delete.png"), tr("Remove"), this);
    connect(m_pBtnRemove, &QPushButton::clicked, this, &CWidgetFavoriteFolder::onRemoveSelected);
    auto *pBar = new QHBoxLayout;
    pBar->setContentsMargins(0, 0, 0, 0);
    pBar->setSpacing(3);
    pBar->addWidget(m_pBtnAdd);
    pBar->addWidget(m_pBtnRemove);
    pBar->addStretch(1);
    return pBar;
}

void CWidgetFavoriteFolder::createList()
{
    m_pListFolders = new CMenuListWidget(this);
    m_pListFolders->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_pListFolders->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_pListFolders->setActions({m_strActExplore});
    m_pListFolders->setItemDelegate(new CFolderDelegate(m_pListFolders));
    m_pListFolders->installEventFilter(this);
    connect(m_pListFolders, &QAbstractItemView::doubleClicked, this,
            &CWidgetFavoriteFolder::onDbClickItem);
    connect(m_pListFolders, &CMenuListWidget::clickAction, this,
            &CWidgetFavoriteFolder::onClickAction);
}

void CWidgetFavoriteFolder::insertFolder(int nRow, const QString &strPath)
{
    auto *pItem = new QListWidgetItem(strPath);
    pItem->setToolTip(plainToolTip(visibleName(strPath)));
    m_pListFolders->insertItem(nRow, pItem);
}

void CWidgetFavoriteFolder::addFolder(const QString &strPath)
{
    const QString strNative = QDir::toNativeSeparators(strPath);
    const QStringList lstFolders = folders();
    const auto it =
        std::find_if(lstFolders.cbegin(), lstFolders.cend(), [&](const QString &strFolder) {
            return Platform::isSamePath(strFolder, strNative);
        });
    const int nRow = it == lstFolders.cend() ? -1 : int(it - lstFolders.cbegin());
    if (nRow != 0) {
        if (nRow > 0)
            delete m_pListFolders->takeItem(nRow);
        insertFolder(0, strNative);
        store();
    }
    m_pListFolders->clearSelection();
    m_pListFolders->setCurrentRow(0, QItemSelectionModel::ClearAndSelect);
}

bool CWidgetFavoriteFolder::listHasFocus() const
{
    return m_pListFolders->hasFocus();
}

void CWidgetFavoriteFolder::onListSelectionChanged()
{
    m_pBtnRemove->setEnabled(firstSelectedRow() >= 0);
}

void CWidgetFavoriteFolder::onDbClickItem(const QModelIndex &)
{
    openSelection();
}

bool CWidgetFavoriteFolder::openSelection()
{
    const int nRow = firstSelectedRow();
    if (nRow < 0)
        return false;
    const QString strPath = m_pListFolders->item(nRow)->text();
    emit dbClickFolder(strPath);
    delete m_pListFolders->takeItem(nRow);
    addFolder(strPath);
    if (g_pSettings->getFavorFolders() != folders()) // The same folder is at the top already.
        store();
    return true;
}

void CWidgetFavoriteFolder::onClickAction(const QString &str)
{
    const int nRow = firstSelectedRow();
    if (str == m_strActExplore && nRow >= 0)
        openFilePosition(m_pListFolders->item(nRow)->text());
}

void CWidgetFavoriteFolder::onRemoveSelected()
{
    QList<int> lstRows;
    const QModelIndexList lstIndexes = m_pListFolders->selectionModel()->selectedIndexes();
    for (const QModelIndex &index : lstIndexes)
        lstRows.append(index.row());
    if (lstRows.isEmpty()) {
        QMessageBox::warning(this, tr("No selected folder"),
                             tr("Please select a favor folder on Main Folder List to remove."),
                             QMessageBox::Ok);
        return;
    }
    std::sort(lstRows.begin(), lstRows.end(), std::greater<>());
    for (const int nRow : qAsConst(lstRows))
        delete m_pListFolders->takeItem(nRow);
    store();
}

bool CWidgetFavoriteFolder::eventFilter(QObject *pWatched, QEvent *pEvent)
{
    if (pWatched == m_pListFolders && pEvent->type() == QEvent::KeyPress
        && isEnter(static_cast<QKeyEvent *>(pEvent))) {
        openSelection();
        return true;
    }
    return QWidget::eventFilter(pWatched, pEvent);
}

int CWidgetFavoriteFolder::firstSelectedRow() const
{
    const QModelIndexList lstIndexes = m_pListFolders->selectionModel()->selectedIndexes();
    return lstIndexes.isEmpty() ? -1 : lstIndexes.first().row();
}

QStringList CWidgetFavoriteFolder::folders() const
{
    QStringList lstFolders;
    for (int n = 0; n < m_pListFolders->count(); ++n)
        lstFolders.append(m_pListFolders->item(n)->text());
    return lstFolders;
}

void CWidgetFavoriteFolder::store()
{
    g_pSettings->setFavorFolders(folders());
    g_pSettings->save();
}
