#include "mainwindow/mainwindow.h"

#include "app/cdraftstore.h"
#include "app/csettings.h"
#include "browser/cwidgetfavorfilelist.h"
#include "document/cdocument.h"
#include "document/cdraftkeeper.h"
#include "document/crecovery.h"
#include "highlight/chighlightmgt.h"
#include "highlight/ctextdocument.h" // Declares the types that are registered here.
#include "mainwindow/actionicons.h"
#include "mainwindow/carrivals.h"
#include "mainwindow/cclosing.h"
#include "mainwindow/cfiledropfilter.h"
#include "mainwindow/cfinddock.h"
#include "mainwindow/cformatmenus.h"
#include "mainwindow/chtmltoolbar.h"
#include "mainwindow/cnoticebar.h"
#include "mainwindow/copener.h"
#include "mainwindow/cpasttabs.h"
#include "mainwindow/crecentmenu.h"
#include "mainwindow/csearch.h"
#include "mainwindow/csidepanels.h"
#include "mainwindow/cstartpanel.h"
#include "mainwindow/cstatuslabels.h"
#include "mainwindow/ctablistbutton.h"
#include "mainwindow/ctabwidget.h"
#include "mainwindow/cworkprogress.h"
#include "mainwindow/framestate.h"
#include "mainwindow/tabnames.h"
#include "pageedit/cpagepictures.h"
#include "ui_mainwindow.h"
#include "web/cpreviewwidget.h"

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QDockWidget>
#include <QStandardPaths>
#include <QStatusBar>
#include <QTextBlock>
#include <QTextLayout>

MainWindow *g_pMainWindow = nullptr;

namespace {

// Pixels. In a narrow window the docks get narrower in favour of the document.
const int g_nLeastPage = 240;

} // namespace

MainWindow::MainWindow(QWidget *pParent)
    : QMainWindow(pParent), m_pUi(std::make_unique<Ui::MainWindow>())
{
    qRegisterMetaType<QTextBlock>("QTextBlock");
    qRegisterMetaType<QList<QTextLayout::FormatRange>>("QList<QTextLayout::FormatRange>");
    m_pHighlightMgt = new CHighlightMgt(this); // Made first, because it reads its files meanwhile.
    m_pUi->setupUi(this);
    setActionIcons(this);
    m_pUi->mainToolBar->setIconSize(QSize(24, 24));
    m_pUi->htmlToolBar->setIconSize(QSize(24, 24));
    setAcceptDrops(true);
    m_pStatus = new CStatusLabels(statusBar());
    m_pStatus->onTextFontSize(g_pSettings->getTextFontSize());
    m_pWork = new CWorkProgress(this);
    m_pWork->onTextFontSize(g_pSettings->getTextFontSize());
    statusBar()->insertWidget(1, m_pWork);
    m_pWork->hide(); // The status bar shows a widget that is inserted.
    setupTabs();
    setupDocuments();
    m_pPanels = new CSidePanels(this, m_pHighlightMgt);
    m_pPanels->browser()->installEventFilter(this);
    for (const QDockWidget *pDock : m_pPanels->docks()) {
        m_pUi->menuView->addAction(pDock->toggleViewAction());
        m_pUi->mainToolBar->addAction(pDock->toggleViewAction());
    }
    m_pPanels->start();
    m_pFindDock = new CFindDock(this, [this] { return m_pPanels->browser()->rootPath(); });
    setupHtmlToolBar();
    setupPageToolBar();
    m_pFormats = new CFormatMenus(m_pUi.get(), m_pHighlightMgt, m_pStatus, this);
    m_pRecent = new CRecentMenu({m_pUi->actionRecent_File_1, m_pUi->actionRecent_File_2,
                                 m_pUi->actionRecent_File_3, m_pUi->actionRecent_File_4,
                                 m_pUi->actionRecent_File_5, m_pUi->actionRecent_File_6},
                                this);
    setupPastTabs();
    m_pSearch = new CSearch(this);
    m_pOpener = new COpener(this, m_pTabs, m_pPanels->preview()->taster(), &m_bLoading);
    m_pClosing = new CClosing(
        this, m_pTabs, m_pPastTabs,
        [this](CDocument *pDocument) { return saveDocument(pDocument, false); });
    m_pArrivals = new CArrivals(
        this, m_pTabs, [this](CDocument *pDocument) { m_pClosing->close(pDocument); });
    m_pOpener->setClose([this](CDocument *pDocument) { return m_pClosing->close(pDocument); });
    setupShortcuts();
    setupTabKeys();
    setupConnections();
    m_pUi->actionLine_Wrap->setChecked(g_pSettings->getLineWrap());
    if (isFrameStateWhole(g_pSettings->getFrameState()))
        restoreState(g_pSettings->getFrameState());
    clipboardDataChanged();
    refreshWindow();
}

MainWindow::~MainWindow()
{
    g_pSettings->setFrameState(m_arrClosedState.isEmpty() ? saveState() : m_arrClosedState);
    if (m_arrClosedState.isEmpty())
        m_pPastTabs->storeOpen();
    // Views, docks and clipboard emit signals while they are destroyed; nobody may answer them.
    QApplication::clipboard()->disconnect(this);
    m_pTabs->disconnect(this);
    m_pPanels->browser()->disconnect(this);
    for (QDockWidget *pDock : m_pPanels->docks())
        pDock->disconnect(this);
    m_pFindDock->dock()->disconnect();
    m_pDocuments->clear();
}

void MainWindow::setupTabs()
{
    m_pTabs = new CTabWidget(this);
    m_pTabs->setObjectName(QStringLiteral("tabWidget"));
    m_pTabs->setAccessibleName(tr("Documents"));
    m_pTabs->setTabsClosable(true);
    m_pTabs->setMovable(true);
    m_pTabs->setDocumentMode(true);
    m_pTabs->setMinimumWidth(g_nLeastPage);
    m_pTabs->setAttribute(Qt::WA_StyledBackground);
    setCentralWidget(m_pTabs);
    m_pTabs->addMenuActions({tr("Open position of file")});
    m_pTabs->setStyleSheet(QStringLiteral("QTabWidget {background:#FDFDFD} QTabWidget::tab-bar {"
                                          "                                    "
                                          "left: 5px; /* move to the right by 5px */"
                                          "                                }"));
    connect(m_pTabs, &QTabWidget::currentChanged, this, &MainWindow::onTabCurrentChanged);
    connect(m_pTabs, &QTabWidget::tabCloseRequested, this, &MainWindow::onTabCloseRequested);
    connect(m_pTabs, &CTabWidget::emitMidButtonRelease, this, &MainWindow::onTabCloseRequested);
    connect(m_pTabs, &CTabWidget::clickAction, this, &MainWindow::onTabClickAction);
    connect(m_pTabs, &QTabWidget::tabBarDoubleClicked, this, &MainWindow::onTabDbClick);
    m_pTabs->setCornerWidget(new CTabListButton(m_pTabs, [this] {
        QVector<STabName> lstNames;
        for (int n = 0; n < m_pTabs->count(); ++n) {
            const CDocument &document = m_pDocuments->of(m_pTabs->widget(n));
            lstNames.append({document.title(), document.path()});
        }
        return lstNames;
    }));
}

void MainWindow::setupPastTabs()
{
    const QDir dataFolder(QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation));
    m_pPastTabs = new CPastTabs(m_pTabs, m_pDocuments.get(),
                                dataFolder.filePath(QStringLiteral("last-session")), this);
    connect(m_pPastTabs, &CPastTabs::openWanted, this, &MainWindow::openFile);
    connect(m_pPastTabs, &CPastTabs::message, this, &MainWindow::showStatusMessage);

    auto *pStart =
        new CStartPanel({m_pUi->actionNewText, m_pUi->actionNewHtml, m_pUi->actionOpen}, m_pTabs);
    pStart->showLastSession(m_pPastTabs->lastPaths());
    const auto showRecent = [pStart] { pStart->showRecentFiles(g_pSettings->getRecentFileList()); };
    showRecent();
    connect(m_pRecent, &CRecentMenu::changed, pStart, showRecent);
    connect(pStart, &CStartPanel::recentFileChosen, m_pRecent, &CRecentMenu::open);
    connect(pStart, &CStartPanel::lastSessionChosen, m_pPastTabs, &CPastTabs::reopenLast);
    m_pTabs->setEmptyPanel(pStart);
}

void MainWindow::setupDocuments()
{
    m_pNotice = new CNoticeBar(m_pTabs);
    m_pTabs->setHeader(m_pNotice);
    m_pDocuments = std::make_unique<CDocuments>(
        QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation), nullptr);
    CRecovery *pRecovery = &m_pDocuments->recovery();
    connect(pRecovery, &CRecovery::noticeChanged, this, &MainWindow::showNotice);
    connect(pRecovery, &CRecovery::recoverWanted, this,
            [this](const SDraft &draft) { m_pOpener->recover(draft); });
    connect(m_pNotice, &CNoticeBar::dismissed, this, [this, pRecovery] {
        CDocument &document = currentDocument();
        if (document.notice().strText.isEmpty())
            pRecovery->dismiss();
        else
            document.dismissNotice();
    });
    // Queued until the window is complete.
    QTimer::singleShot(0, pRecovery, &CRecovery::offerCutOff);
    QTimer::singleShot(0, pRecovery, &CRecovery::offerAbandoned);
    connect(pRecovery, &CRecovery::failed, this, &MainWindow::showStatusMessage);
    CDraftKeeper *pDrafts = &m_pDocuments->drafts();
    connect(pDrafts, &CDraftKeeper::workingChanged, this, [this, pDrafts] {
        showStatusMessage(
            pDrafts->isWorking()
                ? tr("Unsaved text is kept as drafts again.")
                : tr("Unsaved text cannot be kept as drafts: %1").arg(pDrafts->why()));
    });
}

void MainWindow::setupConnections()
{
    connect(QApplication::clipboard(), &QClipboard::dataChanged, this,
            &MainWindow::clipboardDataChanged);
    connect(g_pSettings, &CSettings::textFontSizeChanged, m_pStatus,
            &CStatusLabels::onTextFontSize);
    connect(g_pSettings, &CSettings::textFontSizeChanged, m_pWork, &CWorkProgress::onTextFontSize);
    connect(m_pRecent, &CRecentMenu::openWanted, this, &MainWindow::openFile);
    connect(m_pOpener, &COpener::added, this, &MainWindow::connectDocument);
    connect(m_pOpener, &COpener::message, this, &MainWindow::showStatusMessage);
    connect(m_pSearch, &CSearch::message, this, &MainWindow::showStatusMessage);
    connect(m_pFindDock, &CFindDock::message, this, &MainWindow::showStatusMessage);
    connect(m_pPanels->browser(), &CWidgetFavorFileList::statusMessage, this,
            &MainWindow::showStatusMessage);
    connect(m_pPanels->browser(), &CWidgetFavorFileList::fileRenamed, m_pDocuments.get(),
            &CDocuments::followRenamed);
    auto *pDropFilter = new CFileDropFilter(this);
    connect(pDropFilter, &CFileDropFilter::filesDropped, this, &MainWindow::openFiles);
    pDropFilter->setException([](const QWidget *pWidget, const QMimeData *pData) {
        const CPagePictures *pPictures = CPagePictures::of(pWidget);
        return pPictures && pPictures->takesDrop(pData);
    });
}
