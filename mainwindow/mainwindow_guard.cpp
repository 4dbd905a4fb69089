#include "mainwindow/mainwindow.h"

#include "editor/chighlightedit.h"
#include "mainwindow/cdocumentguard.h"
#include "mainwindow/cnoticebar.h"
#include "mainwindow/ctabwidget.h"
#include "web/ceditwebview.h"

#include <QDir>
#include <QFileInfo>
#include <QScopedValueRollback>
#include <QStandardPaths>

void MainWindow::setupGuard()
{
    addToolBarBreak(Qt::TopToolBarArea);
    m_pNotice = new CNoticeBar(this);
    addToolBar(Qt::TopToolBarArea, m_pNotice);
    const QDir dataFolder(QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation));
    m_pGuard = new CDocumentGuard(dataFolder.filePath(QStringLiteral("recovery")), m_pNotice, this);
    connect(m_pGuard, &CDocumentGuard::saveWanted, this, &MainWindow::on_actionSave_triggered);
    connect(m_pGuard, &CDocumentGuard::refreshWanted, this,
            &MainWindow::on_actionRefresh_triggered);
    connect(m_pGuard, &CDocumentGuard::recoverWanted, this, &MainWindow::recover);
    // Not while the window is built: the bar would be counted into the stored frame state.
    QTimer::singleShot(0, m_pGuard, &CDocumentGuard::offerRecovery);
}

void MainWindow::recover(const SDraft &draft)
{
    {
        const QScopedValueRollback<bool> loading(m_bLoading, true);
        if (draft.bPage)
            recoverPage(draft);
        else
            recoverText(draft);
    }
    const CDocument document = currentDocument();
    m_pGuard->documentOpened(document);
    m_pGuard->documentChanged(document);
    refreshWindow();
}

void MainWindow::recoverText(const SDraft &draft)
{
    CHighlightEdit *pEditor = addTextDocument();
    if (!draft.strPath.isEmpty())
        showTextFile(pEditor, draft.strPath);
    pEditor->setTextData(draft.strText.toUtf8(), false);
    pEditor->setReturnFormat(draft.nReturnFormat);
    pEditor->setModified(true);
}

void MainWindow::recoverPage(const SDraft &draft)
{
    CEditWebView *pPage = addPageDocument();
    if (!draft.strPath.isEmpty()) {
        pPage->setFilePath(draft.strPath);
        m_pTabs->setPlainTabText(m_pTabs->currentIndex(), QFileInfo(draft.strPath).fileName());
    }
    pPage->setHtml(draft.strText, QUrl::fromLocalFile(draft.strPath));
    pPage->setModified(true);
}
