#include "mainwindow/mainwindow.h"

#include "app/csettings.h"
#include "app/plaintext.h"
#include "app/version.h"
#include "browser/cwidgetfavorfilelist.h"
#include "editor/chighlightedit.h"
#include "highlight/chighlightmgt.h"
#include "highlight/ctextdocument.h"
#include "mainwindow/actionicons.h"
#include "mainwindow/cdocumentguard.h"
#include "mainwindow/cfiledropfilter.h"
#include "mainwindow/cstatuslabels.h"
#include "mainwindow/ctabwidget.h"
#include "mainwindow/framestate.h"
#include "ui_mainwindow.h"
#include "web/ceditwebview.h"

#include <QApplication>
#include <QClipboard>
#include <QDockWidget>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QShortcut>

MainWindow *g_pMainWindow = nullptr;

MainWindow::MainWindow(QWidget *pParent)
    : QMainWindow(pParent), m_pUi(std::make_unique<Ui::MainWindow>())
{
    qRegisterMetaType<QTextBlock>("QTextBlock");
    qRegisterMetaType<QList<QTextLayout::FormatRange>>("QList<QTextLayout::FormatRange>");
    m_pHighlightMgt = new CHighlightMgt(this); // First: it reads its files meanwhile.
    m_pUi->setupUi(this);
    setActionIcons(this);
    m_pUi->mainToolBar->setIconSize(QSize(24, 24));
    m_pUi->htmlToolBar->setIconSize(QSize(24, 24));
    setAcceptDrops(true);
    m_pStatus = new CStatusLabels(statusBar());
    m_pStatus->onTextFontSize(g_pSettings->getTextFontSize());
    setupTabs();
    setupGuard();
    setupDocks();
    setupHtmlToolBar();
    setupTextCodecMenu();
    setupShortcuts();
    setupConnections();
    setupLanguageMenu();
    m_pUi->actionLine_Wrap->setChecked(g_pSettings->getLineWrap());
    updateRecentFiles();
    if (isFrameStateWhole(g_pSettings->getFrameState()))
        restoreState(g_pSettings->getFrameState());
    clipboardDataChanged();
    refreshWindow();
}

MainWindow::~MainWindow()
{
    m_pGuard->flush(); // What the end of the program drops can be recovered.
    g_pSettings->setFrameState(saveState());
    // The views, docks and the clipboard signal while they go; nobody may answer any more.
    QApplication::clipboard()->disconnect(this);
    for (QObject *pSender :
         {static_cast<QObject *>(m_pTabs), static_cast<QObject *>(m_pDockPreview),
          static_cast<QObject *>(m_pBrowser)})
        pSender->disconnect(this);
    while (m_pTabs->count() > 0)
        CDocument(m_pTabs->widget(0)).destroy();
}

void MainWindow::setupTabs()
{
    m_pTabs = new CTabWidget(this);
    m_pTabs->setObjectName(QStringLiteral("tabWidget"));
    m_pTabs->setAccessibleName(tr("Documents"));
    m_pTabs->setTabsClosable(true);
    m_pTabs->setMovable(true);
    m_pTabs->setDocumentMode(true);
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
}

void MainWindow::setupShortcuts()
{
    // Single keys: the standard lists hold keys that are other actions' here.
    m_pUi->actionRedo->setShortcuts(
        {QKeySequence(QStringLiteral("Ctrl+Shift+Z")), QKeySequence(QStringLiteral("Ctrl+Y"))});
    // In no menu or toolbar, so that the window has to know them for their keys.
    addActions({m_pUi->actionBack, m_pUi->actionForward, m_pUi->actionLeft_to_Right,
                m_pUi->actionRight_to_Left});

    const auto addKey = [this](const char *szKey, auto fnActivated) {
        auto *pShortcut = new QShortcut(QKeySequence(QLatin1String(szKey)), this);
        connect(pShortcut, &QShortcut::activated, this, fnActivated);
    };
    addKey("Ctrl+W", [this] { onTabCloseRequested(m_pTabs->currentIndex()); });
    addKey("Ctrl+Q", [this] { close(); });
    const auto step = [this](int nBy) {
        const int nCount = m_pTabs->count();
        if (nCount > 0)
            m_pTabs->setCurrentIndex((m_pTabs->currentIndex() + nBy + nCount) % nCount);
    };
    addKey("Ctrl+Tab", [step] { step(1); });
    addKey("Ctrl+Shift+Tab", [step] { step(-1); });
    addKey("F6", [this] { stepPane(1); });
    addKey("Shift+F6", [this] { stepPane(-1); });
    addKey("F10", [this] { menuBar()->setActiveAction(menuBar()->actions().constFirst()); });
}

void MainWindow::setupConnections()
{
    connect(QApplication::clipboard(), &QClipboard::dataChanged, this,
            &MainWindow::clipboardDataChanged);
    connect(g_pSettings, &CSettings::textFontSizeChanged, m_pStatus,
            &CStatusLabels::onTextFontSize);
    connect(new CFileDropFilter(this), &CFileDropFilter::filesDropped, this,
            &MainWindow::openFiles);
}

CDocument MainWindow::currentDocument() const
{
    return CDocument(m_pTabs->currentWidget());
}

void MainWindow::refreshWindow()
{
    updateTitle();
    updateActions();
    updateStatus();
}

void MainWindow::updateTitle()
{
    const CDocument document = currentDocument();
    if (document.kind() == CDocument::Kind::None) {
        setWindowTitle(QStringLiteral(QUILLAN_NAME));
        return;
    }
    const QString strTitle = document.title();
    m_pTabs->setPlainTabText(m_pTabs->currentIndex(), strTitle);
    setWindowTitle(
        plainWindowTitle(QStringLiteral("%1(%2)").arg(QStringLiteral(QUILLAN_NAME), strTitle)));
}

void MainWindow::updateActions()
{
    const CDocument document = currentDocument();
    const CHighlightEdit *pEditor = document.editor();
    const bool bSearchable = pEditor || document.page();
    m_pUi->actionSave->setEnabled(document.canSave());
    if (document.page() && !document.canSave())
        showStatusMessage(tr("This is another page than the document's file: Save As keeps it."));
    m_pUi->actionSave_As->setEnabled(bSearchable);
    m_pUi->actionSave_All->setEnabled(false);
    m_pUi->actionRefresh->setEnabled(!document.path().isEmpty());
    for (QAction *pAction : {m_pUi->actionFind, m_pUi->actionFind_Next, m_pUi->actionFind_Previous,
                             m_pUi->actionReplace})
        pAction->setEnabled(bSearchable);
    m_pUi->actionGo_to_Line->setEnabled(pEditor);
    m_pUi->actionToggle_Comment->setEnabled(pEditor && pEditor->canToggleComment());
    m_pUi->actionVerify_Valid->setEnabled(pEditor && pEditor->canVerifyValid());
    m_pUi->actionFormatting->setEnabled(pEditor && pEditor->canFormatting());
    m_pUi->actionColor_Dialog->setEnabled(bSearchable);
    m_pUi->menuLanguage->setEnabled(pEditor);
    // A page's source is UTF-8 always.
    m_pUi->menuText_Codec->setEnabled(document.kind() == CDocument::Kind::Text);
    updateEditActions(document);
    updatePageActions(document);
}

void MainWindow::updateStatus()
{
    const CDocument document = currentDocument();
    const CHighlightEdit *pEditor = document.editor();
    m_pStatus->setCursorText(pEditor ? pEditor->getStatusText() : QString());
    updateReturnFormat(document);
    updateLanguage(document);
}

void MainWindow::showStatusMessage(const QString &strText)
{
    m_pStatus->setMessage(strText);
}

void MainWindow::onTabCurrentChanged(int)
{
    showStatusMessage(QString());
    m_pGuard->currentChanged(currentDocument());
    if (!m_bLoading)
        refreshWindow();
    m_timerPreview.start();
}

void MainWindow::onModifiedChanged()
{
    if (m_bLoading)
        return;
    m_pGuard->documentChanged(currentDocument());
    refreshWindow();
}

void MainWindow::onSelectionChanged()
{
    if (m_bLoading)
        return;
    updateActions();
    const CHighlightEdit *pEditor = currentDocument().editor();
    m_pStatus->setCursorText(pEditor ? pEditor->getStatusText() : QString());
}

void MainWindow::onWidgetFocusIn()
{
    if (!m_bLoading)
        updateActions();
}

void MainWindow::clipboardDataChanged()
{
    const QMimeData *pData = QApplication::clipboard()->mimeData();
    m_pUi->actionPaste->setEnabled(pData && pData->hasText());
}

void MainWindow::on_actionAbout_triggered()
{
    QMessageBox::about(
        this, tr("About %1").arg(QStringLiteral(QUILLAN_NAME)),
        QStringLiteral("<h2>%1 %2</h2>")
                .arg(QStringLiteral(QUILLAN_NAME), QStringLiteral(QUILLAN_VERSION))
            + QStringLiteral("<p>%1</p>").arg(tr("Made by the Quillan developers.")));
}

void MainWindow::changeEvent(QEvent *pEvent)
{
    QMainWindow::changeEvent(pEvent);
    if (pEvent->type() != QEvent::ActivationChange || !isActiveWindow() || !m_pGuard)
        return;
    // While another program had the focus, things may have changed that no signal told.
    clipboardDataChanged();
    m_pGuard->checkFiles();
}
