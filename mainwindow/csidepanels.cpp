#include "mainwindow/csidepanels.h"

#include "app/csettings.h"
#include "browser/cwidgetfavorfilelist.h"
#include "document/cdocument.h"
#include "editor/chighlightedit.h"
#include "highlight/chighlightmgt.h"
#include "mainwindow/cworkprogress.h"
#include "mainwindow/mainwindow.h"
#include "res/icons.h"
#include "web/cpreviewwidget.h"

#include <QAction>
#include <QDir>
#include <QDockWidget>
#include <QFileInfo>
#include <QUrl>

namespace {

// Gives the folder used last; at the very first start the home folder.
QString startFolder()
{
    const QString strLast = g_pSettings->getLastPathFileName();
    const QFileInfo info(strLast);
    if (strLast.isEmpty() || !info.exists())
        return QDir::homePath();
    return info.isDir() ? strLast : info.absolutePath();
}

// A dock that begins to float is moved twice: to its place, and sometimes late to the corner of the
// screen, by an event from before it was a window. Without this the corner would be stored.
void keepPlace(QDockWidget *pDock)
{
    const int nSettled = 500; // Milliseconds; the desktop has answered by then.
    QTimer::singleShot(0, pDock, [pDock] {
        const QPoint place = pDock->pos();
        QTimer::singleShot(nSettled, pDock, [pDock, place] {
            if (pDock->isFloating() && pDock->pos().isNull())
                pDock->move(place);
        });
    });
}

} // namespace

CSidePanels::CSidePanels(MainWindow *pWindow, const CHighlightMgt *pLanguages)
    : QObject(pWindow),
      m_pWindow(pWindow),
      m_pPreview(new CPreviewWidget(pWindow)),
      m_pBrowser(new CWidgetFavorFileList(pWindow))
{
    m_pPreview->setDefinitionFunction([pLanguages](const QString &strPath) {
        return pLanguages->definitionForFile(QFileInfo(strPath).fileName());
    });
    m_pDockPreview = addDock(QStringLiteral("Preview"), MainWindow::tr("Preview"), m_pPreview,
                             Qt::RightDockWidgetArea, QStringLiteral("preview"));
    m_pDockBrowser = addDock(QStringLiteral("Folder Browser"), MainWindow::tr("Folder Browser"),
                             m_pBrowser, Qt::LeftDockWidgetArea, QStringLiteral("folder_explore"));
    pWindow->resizeDocks({m_pDockBrowser, m_pDockPreview}, {240, 320}, Qt::Horizontal);
    m_timerPreview.setSingleShot(true);
    m_timerPreview.setInterval(300);
    connect(&m_timerPreview, &QTimer::timeout, this, &CSidePanels::previewCurrentDocument);
}

void CSidePanels::start()
{
    connect(m_pDockPreview, &QDockWidget::visibilityChanged, m_pWindow,
            &MainWindow::onDockPreviewChanged);
    connect(m_pBrowser, &CWidgetFavorFileList::dbClickFile, m_pWindow, &MainWindow::openFile);
    connect(m_pBrowser, &CWidgetFavorFileList::rootPathChanged, m_pWindow,
            &MainWindow::onRootPathChanged);
    connect(m_pBrowser, &CWidgetFavorFileList::fileSelectionChanged, m_pWindow,
            &MainWindow::onFileSelectionChanged);
    connect(m_pBrowser, &CWidgetFavorFileList::listing, this, &CSidePanels::onListing);
    m_pBrowser->setRootPath(startFolder());
}

void CSidePanels::onListing(bool bRuns)
{
    CWorkProgress &progress = m_pWindow->workProgress();
    progress.end(m_nListing);
    m_nListing = bRuns ? progress.begin(m_pBrowser, tr("Listing the folder"),
                                        [this] { m_pBrowser->stopListing(); })
                       : 0;
}

QDockWidget *CSidePanels::addDock(const QString &strName, const QString &strTitle, QWidget *pPanel,
                                  Qt::DockWidgetArea area, const QString &strIcon)
{
    auto *pDock = new QDockWidget(strTitle, m_pWindow);
    pDock->setObjectName(strName);
    pDock->setWidget(pPanel);
    m_pWindow->addDockWidget(area, pDock);
    pDock->toggleViewAction()->setIcon(drawnIcon(strIcon));
    connect(pDock, &QDockWidget::topLevelChanged, this, [pDock](bool bFloats) {
        if (bFloats)
            keepPlace(pDock);
    });
    return pDock;
}

void CSidePanels::previewCurrentDocument()
{
    const CHighlightEdit *pEditor = m_pWindow->currentDocument().editor();
    if (!pEditor || pEditor->isLoading() || !m_pDockPreview->isVisible())
        return;
    const QString strLanguage = pEditor->languageName();
    if (strLanguage != QLatin1String("HTML") && strLanguage != QLatin1String("SVG"))
        return;
    m_pWindow->documents().drafts().flush(); // The shown file can crash the program.
    follow(&m_pWindow->currentDocument());
    if (strLanguage == QLatin1String("HTML"))
        m_pPreview->previewHtml(pEditor->getText(), QUrl::fromLocalFile(pEditor->pathFileName()));
    else
        m_pPreview->previewSvg(pEditor->getText());
}

// Empties what shows a document when that document is closed.
void CSidePanels::follow(CDocument *pDocument)
{
    if (m_pPreviewed == pDocument)
        return;
    m_pPreviewed = pDocument;
    connect(pDocument, &CDocument::closed, this, [this, pDocument] {
        disconnect(pDocument, &CDocument::closed, this, nullptr);
        if (m_pPreviewed != pDocument)
            return;
        m_pPreviewed = nullptr;
        m_pPreview->clearPreview();
    });
}

void CSidePanels::previewFile(const QString &strPath, bool bSelected)
{
    if (bSelected)
        m_timerPreview.stop(); // The selection is newer, so it is what the user wants to see.
    const bool bShown = m_pDockPreview->isVisible();
    if (bShown)
        m_pWindow->documents().drafts().flush(); // The shown file can crash the program.
    if (bShown)
        m_pPreviewed = nullptr;
    m_pPreview->setFile(strPath, bShown);
}

void CSidePanels::onPreviewVisible(bool bVisible)
{
    if (bVisible)
        previewSoon();
    else
        m_pPreview->clearPreview();
}

void CSidePanels::onBrowserShown(bool bShown)
{
    if (bShown && m_bBrowserWasHidden)
        m_pBrowser->setRootPath(m_pBrowser->rootPath());
    m_bBrowserWasHidden = m_bBrowserWasHidden || !bShown;
}
