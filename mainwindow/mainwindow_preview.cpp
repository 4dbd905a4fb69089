#include "mainwindow/mainwindow.h"

#include "app/csettings.h"
#include "browser/cwidgetfavorfilelist.h"
#include "editor/chighlightedit.h"
#include "highlight/chighlightmgt.h"
#include "mainwindow/cnoticebar.h"
#include "mainwindow/ctabwidget.h"
#include "mainwindow/panes.h"
#include "res/icons.h"
#include "ui_mainwindow.h"
#include "web/cpreviewwidget.h"

#include <QDir>
#include <QDockWidget>
#include <QFileInfo>
#include <QTabBar>
#include <QToolBar>
#include <QUrl>

namespace {

// The folder last used; at the very first start the home folder.
QString startFolder()
{
    const QString strLast = g_pSettings->getLastPathFileName();
    const QFileInfo info(strLast);
    if (strLast.isEmpty() || !info.exists())
        return QDir::homePath();
    return info.isDir() ? strLast : info.absolutePath();
}

QDockWidget *addDock(QMainWindow *pWindow, const QString &strName, const QString &strTitle,
                     QWidget *pPanel, Qt::DockWidgetArea area, const QString &strIcon)
{
    auto *pDock = new QDockWidget(strTitle, pWindow);
    pDock->setObjectName(strName);
    pDock->setWidget(pPanel);
    pWindow->addDockWidget(area, pDock);
    pDock->toggleViewAction()->setIcon(drawnIcon(strIcon));
    return pDock;
}

} // namespace

void MainWindow::setupDocks()
{
    m_pPreview = new CPreviewWidget(this);
    m_pPreview->setDefinitionFunction([this](const QString &strPath) {
        return m_pHighlightMgt->definitionForFile(QFileInfo(strPath).fileName());
    });
    m_pDockPreview = addDock(this, QStringLiteral("Preview"), tr("Preview"), m_pPreview,
                             Qt::RightDockWidgetArea, QStringLiteral("preview"));
    m_pBrowser = new CWidgetFavorFileList(this);
    m_pDockBrowser = addDock(this, QStringLiteral("Folder Browser"), tr("Folder Browser"),
                             m_pBrowser, Qt::LeftDockWidgetArea, QStringLiteral("folder_explore"));
    for (const QDockWidget *pDock : {m_pDockPreview, m_pDockBrowser}) {
        m_pUi->menuView->addAction(pDock->toggleViewAction());
        m_pUi->mainToolBar->addAction(pDock->toggleViewAction());
    }
    resizeDocks({m_pDockBrowser, m_pDockPreview}, {240, 320}, Qt::Horizontal);

    connect(m_pDockPreview, &QDockWidget::visibilityChanged, this,
            &MainWindow::onDockPreviewChanged);
    connect(m_pBrowser, &CWidgetFavorFileList::dbClickFile, this, &MainWindow::openFile);
    connect(m_pBrowser, &CWidgetFavorFileList::rootPathChanged, this,
            &MainWindow::onRootPathChanged);
    connect(m_pBrowser, &CWidgetFavorFileList::fileSelectionChanged, this,
            &MainWindow::onFileSelectionChanged);
    m_pBrowser->installEventFilter(this); // See eventFilter().
    m_pBrowser->setRootPath(startFolder());

    // What one types is previewed when the typing pauses.
    m_timerPreview.setSingleShot(true);
    m_timerPreview.setInterval(300);
    connect(&m_timerPreview, &QTimer::timeout, this, &MainWindow::previewCurrentDocument);
}

void MainWindow::previewCurrentDocument()
{
    const CHighlightEdit *pEditor = currentDocument().editor();
    if (!pEditor || !m_pDockPreview->isVisible())
        return;
    const QString strLanguage = pEditor->languageName();
    if (strLanguage == QLatin1String("HTML"))
        m_pPreview->previewHtml(pEditor->getText(), QUrl::fromLocalFile(pEditor->pathFileName()));
    else if (strLanguage == QLatin1String("SVG"))
        m_pPreview->previewSvg(pEditor->getText());
}

void MainWindow::onDockPreviewChanged(bool bVisible)
{
    if (bVisible)
        m_timerPreview.start();
    else
        m_pPreview->clearPreview();
}

void MainWindow::onRootPathChanged(const QString &strPath)
{
    m_pPreview->setFile(strPath, m_pDockPreview->isVisible());
}

void MainWindow::onFileSelectionChanged(const QString &strPath)
{
    m_timerPreview.stop(); // The selection came last; it is what the user wants to see.
    m_pPreview->setFile(strPath, m_pDockPreview->isVisible());
}

bool MainWindow::eventFilter(QObject *pObject, QEvent *pEvent)
{
    // A browser that was hidden shows what its folder holds now.
    if (pObject == m_pBrowser && pEvent->type() == QEvent::Hide)
        m_bBrowserWasHidden = true;
    if (pObject == m_pBrowser && pEvent->type() == QEvent::Show && m_bBrowserWasHidden)
        m_pBrowser->setRootPath(m_pBrowser->rootPath());
    return QMainWindow::eventFilter(pObject, pEvent);
}

void MainWindow::stepPane(int nBy)
{
    QList<QWidget *> lstPanes = {m_pBrowser, m_pPreview, m_pNotice, m_pUi->htmlToolBar};
    if (m_pTabs->count() > 0) {
        lstPanes.prepend(m_pTabs->tabBar());
        lstPanes.prepend(m_pTabs->currentWidget());
    }
    if (QWidget *pPane = nextPane(lstPanes, focusWidget(), nBy))
        focusPane(pPane);
}
