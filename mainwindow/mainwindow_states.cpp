// Shows the state of the current document in the window.
#include "mainwindow/mainwindow.h"

#include "app/plaintext.h"
#include "app/version.h"
#include "document/cdocument.h"
#include "document/notice.h"
#include "editor/chighlightedit.h"
#include "mainwindow/actionstates.h"
#include "mainwindow/cformatmenus.h"
#include "mainwindow/chtmltoolbar.h"
#include "mainwindow/cnoticebar.h"
#include "mainwindow/csidepanels.h"
#include "mainwindow/cstatuslabels.h"
#include "mainwindow/ctabwidget.h"
#include "pageedit/cpageobjects.h"
#include "pageedit/cpagetoolbar.h"
#include "ui_mainwindow.h"
#include "web/ceditwebview.h"

#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QWebPage>

CDocument &MainWindow::currentDocument() const
{
    return m_pDocuments->of(m_pTabs->currentWidget());
}

void MainWindow::refreshWindow()
{
    updateTitle();
    updateActions();
    updateStatus();
}

void MainWindow::updateTitle()
{
    const CDocument &document = currentDocument();
    if (!document.widget()) {
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
    const CDocument &document = currentDocument();
    showActionStates(m_pUi.get(), document);
    m_pPageTools->follow(shownPage());
    m_pPageObjects->follow(shownPage());
    if (!document.page())
        return;
    if (!document.canSave())
        showStatusMessage(tr("The shown page is not the document's file: Save As keeps it."));
    if (!document.editor())
        m_pHtmlTools->showFormat(*document.page());
}

void MainWindow::updateStatus()
{
    const CDocument &document = currentDocument();
    const CHighlightEdit *pEditor = document.editor();
    m_pStatus->setCursorText(pEditor ? pEditor->getStatusText() : QString());
    m_pFormats->show(document);
}

// Notices of the current document come before those that belong to none.
void MainWindow::showNotice()
{
    const SNotice notice = currentDocument().notice();
    m_pNotice->show(notice.strText.isEmpty() ? m_pDocuments->recovery().notice() : notice);
}

void MainWindow::showStatusMessage(const QString &strText)
{
    m_pStatus->setMessage(strText);
}

void MainWindow::onTabCurrentChanged(int)
{
    showStatusMessage(QString());
    showNotice();
    if (!m_bLoading)
        refreshWindow();
    m_pPanels->previewSoon();
}

void MainWindow::onModifiedChanged()
{
    if (!m_bLoading)
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

void MainWindow::onEditPageContentChanged()
{
    const auto *pEditor = qobject_cast<CHighlightEdit *>(sender());
    if (m_bLoading || (pEditor && pEditor->isLoading()))
        return;
    if (qobject_cast<QWebPage *>(sender()))
        updateTitle();
    updateActions();
    m_pPanels->previewSoon();
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

void MainWindow::changeEvent(QEvent *pEvent)
{
    QMainWindow::changeEvent(pEvent);
    if (pEvent->type() != QEvent::ActivationChange || !isActiveWindow() || !m_pDocuments)
        return;
    // Much may have changed without a signal while another program had the focus.
    clipboardDataChanged();
    m_pDocuments->checkFiles();
}

bool MainWindow::eventFilter(QObject *pObject, QEvent *pEvent)
{
    if (pEvent->type() == QEvent::Show || pEvent->type() == QEvent::Hide)
        m_pPanels->onBrowserShown(pEvent->type() == QEvent::Show);
    return QMainWindow::eventFilter(pObject, pEvent);
}
