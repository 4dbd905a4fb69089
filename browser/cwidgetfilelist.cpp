#include "browser/cwidgetfilelist.h"

#include "app/csettings.h"
#include "app/platform.h"
#include "browser/cfileitemdelegate.h"
#include "browser/cfilesystemmodel.h"
#include "browser/cfoldercompleter.h"
#include "browser/cfolderfollower.h"
#include "browser/cmenulistview.h"
#include "browser/flatbutton.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QStyle>
#include <QVBoxLayout>

CWidgetFileList::CWidgetFileList(QWidget *pParent)
    : QWidget(pParent),
      m_strActExplore(tr("Open position of file/folder")),
      m_strActOpenDefault(tr("Open file/folder by default application"))
{
    auto *pLayout = new QVBoxLayout(this);
    pLayout->setContentsMargins(0, 0, 0, 0);
    pLayout->setSpacing(0);
    pLayout->addLayout(createBar());
    createList();
    pLayout->addWidget(m_pListView);
    setFocusProxy(m_pListView);
    m_timerSelection.setInterval(200);
    connect(&m_timerSelection, &QTimer::timeout, this,
            &CWidgetFileList::onTimeOutFileSelectionChanged);
}

CWidgetFileList::~CWidgetFileList()
{
    // When it loses the focus while it is destroyed, it may signal an entry.
    m_pComboFolder->disconnect(this);
    // Deleted first, because it waits for its reader, and nobody must hear of that.
    delete m_pFollower;
    m_pModel->stop();
    // The model is deleted first. As a child of the view it would signal the removal of its rows to
    // a view that is half destroyed.
    delete m_pModel;
}

QBoxLayout *CWidgetFileList::createBar()
{
    auto *pBtnRefresh = createFlatButton(QStringLiteral(":/res/refresh.png"), tr("Refresh"), this);
    connect(pBtnRefresh, &QPushButton::clicked, this, &CWidgetFileList::onRefresh);
    m_pBtnUpper = createFlatButton(QStringLiteral(":/res/upper.png"), tr("Upper"), this);
    connect(m_pBtnUpper, &QPushButton::clicked, this, &CWidgetFileList::onUpper);
    createFolderBox();
    auto *pBtnBrowse =
        createFlatButton(QStringLiteral(":/res/folder_explore.png"), tr("Browse..."), this);
    connect(pBtnBrowse, &QPushButton::clicked, this, &CWidgetFileList::onFolderBrowse);

    auto *pBar = new QHBoxLayout;
    pBar->setContentsMargins(0, 0, 0, 0);
    pBar->setSpacing(3);
    pBar->addWidget(pBtnRefresh);
    pBar->addWidget(m_pBtnUpper);
    pBar->addWidget(m_pComboFolder, 1);
    pBar->addWidget(pBtnBrowse);
    return pBar;
}

void CWidgetFileList::createFolderBox()
{
    m_pComboFolder = new QComboBox(this);
    m_pComboFolder->setEditable(true);
    m_pComboFolder->setInsertPolicy(QComboBox::NoInsert);
    // Long paths must not set the width of the dock.
    m_pComboFolder->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_pComboFolder->setMinimumContentsLength(8);
    m_pComboFolder->setAccessibleName(tr("Folder"));
    m_pComboFolder->lineEdit()->setAccessibleName(tr("Folder"));
    // The box's own completer would replace a completely typed path by another folder of the
    // history.
    m_pComboFolder->setCompleter(nullptr);
    // For the current entry the box signals only `activated`.
    new CFolderCompleter(m_pComboFolder->lineEdit());
    const auto pIndexChanged = QOverload<int>::of(&QComboBox::currentIndexChanged);
    connect(m_pComboFolder, pIndexChanged, this, &CWidgetFileList::onBoxEntry);
    const auto pActivated = QOverload<int>::of(&QComboBox::activated);
    connect(m_pComboFolder, pActivated, this, &CWidgetFileList::onBoxEntry);
    connect(m_pComboFolder->lineEdit(), &QLineEdit::returnPressed, this,
            &CWidgetFileList::onComboFolderReturn);
    m_pComboFolder->lineEdit()->installEventFilter(this);
}

void CWidgetFileList::createList()
{
    m_pListView = new CMenuListView(this);
    m_pListView->setAccessibleName(tr("Folder Browser"));
    m_pListView->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_pListView->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_pListView->setActions({m_strActExplore, m_strActOpenDefault});
    // The style's own size for lists is larger than some of the icons: names would not line up.
    const int nIconSize = style()->pixelMetric(QStyle::PM_SmallIconSize);
    m_pListView->setIconSize(QSize(nIconSize, nIconSize));
    m_pListView->setUniformItemSizes(true); // See CFileItemDelegate.
    m_pListView->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    auto *pDelegate = new CFileItemDelegate(m_pListView);
    m_pListView->setItemDelegate(pDelegate);
    connect(pDelegate, &CFileItemDelegate::renameAsked, this, &CWidgetFileList::onRenameAsked);
    // Names are edited only after the key here.
    m_pListView->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_pListView->setDragDropMode(QAbstractItemView::DragOnly);
    m_pListView->installEventFilter(this);
    connect(m_pListView, &QAbstractItemView::doubleClicked, this,
            &CWidgetFileList::onDbClickListItem);
    connect(m_pListView, &CMenuListView::clickAction, this, &CWidgetFileList::onClickAction);

    m_pModel = new CFileSystemModel(m_pListView);
    m_pModel->setScanSubDirs(false);
    m_pListView->setModel(m_pModel);
    connect(m_pListView->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &CWidgetFileList::onFileSelectionChanged);
    // If a click comes before the reader is ready, the last folder is not listed.
    connect(
        m_pModel, &CFileSystemModel::fetchMissed, this,
        [this] { m_pModel->setRootPath(m_strChosen, true); });
    connect(m_pModel, &CFileSystemModel::fetchEnded, this, [this] { emit listing(false); });
    connect(m_pModel, &CFileSystemModel::directoryLoaded, this,
            &CWidgetFileList::onDirectoryLoaded);
    m_pFollower = new CFolderFollower(this);
    connect(m_pFollower, &CFolderFollower::listed, this, &CWidgetFileList::onListed);
}

QString CWidgetFileList::rootPath() const
{
    return m_pModel->rootPath();
}

void CWidgetFileList::setRootPath(const QString &strPath)
{
    const QScopedValueRollback<bool> setting(m_bSettingPath, true);
    const QString strNative = QDir::toNativeSeparators(strPath);
    emit rootPathChanged(strNative);
    const bool bKnown = isInHistory(strNative);
    m_pComboFolder->setEditText(strNative);
    listFolder(strNative);
    if (bKnown)
        return;
    m_pComboFolder->insertItem(0, strNative);
    // The history opens as wide as its paths, however narrow the panel is.
    QAbstractItemView *pHistory = m_pComboFolder->view();
    const int nScrollBar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    pHistory->setMinimumWidth(qMin(pHistory->sizeHintForColumn(0) + nScrollBar, 700));
}

bool CWidgetFileList::isInHistory(const QString &strPath) const
{
    for (int n = 0; n < m_pComboFolder->count(); ++n)
        if (Platform::isSamePath(m_pComboFolder->itemText(n), strPath))
            return true;
    return false;
}

// Does not change the history.
void CWidgetFileList::enterFolder(const QString &strPath)
{
    const QString strNative = QDir::toNativeSeparators(strPath);
    m_pComboFolder->setEditText(strNative);
    listFolder(strNative);
}

void CWidgetFileList::listFolder(const QString &strPath)
{
    m_strChosen = strPath;
    m_strToSelect.clear();
    emit listing(true);
    m_pModel->setRootPath(strPath, true);
    m_pFollower->follow(m_pModel->rootPath());
}

void CWidgetFileList::stopListing()
{
    m_pModel->stop();
    emit statusMessage(tr("The listing was stopped; not all of the folder is shown."));
}

// The box signals a choice up to twice, and once more when it loses the focus.
void CWidgetFileList::onBoxEntry(int nIndex)
{
    const QString strPath = m_pComboFolder->itemText(nIndex);
    if (strPath != m_strChosen)
        onComboFolderIdxChanged(strPath);
}

void CWidgetFileList::onComboFolderIdxChanged(const QString &str)
{
    if (!m_bSettingPath)
        setRootPath(str);
}

void CWidgetFileList::onComboFolderReturn()
{
    setRootPath(m_pComboFolder->lineEdit()->text());
}

void CWidgetFileList::onRefresh()
{
    setRootPath(m_pComboFolder->lineEdit()->text());
}

void CWidgetFileList::onUpper()
{
    QDir dir(rootPath());
    dir.cdUp();
    // A root is always listed again.
    if (QDir::toNativeSeparators(dir.absolutePath()) == rootPath() && !dir.isRoot())
        return;
    const QString strLeft = rootPath();
    enterFolder(dir.absolutePath());
    m_strToSelect = strLeft;
}

void CWidgetFileList::onFolderBrowse()
{
    const QString strStart = rootPath().isEmpty() ? g_pSettings->getLastPathFileName() : rootPath();
    const QString strFolder = QFileDialog::getExistingDirectory(
        this, tr("Select a folder"), strStart, QFileDialog::ShowDirsOnly);
    if (strFolder.isEmpty())
        return;
    g_pSettings->setLastPathFileName(QDir::toNativeSeparators(strFolder));
    g_pSettings->save();
    setRootPath(strFolder);
}
