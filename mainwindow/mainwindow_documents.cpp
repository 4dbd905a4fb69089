// Connects the signals of documents to the window.
#include "mainwindow/mainwindow.h"

#include "app/csettings.h"
#include "document/cdocument.h"
#include "document/cpagedocument.h"
#include "editor/chighlightedit.h"
#include "mainwindow/carrivals.h"
#include "mainwindow/cclosing.h"
#include "mainwindow/copener.h"
#include "mainwindow/csearch.h"
#include "mainwindow/csidepanels.h"
#include "web/ceditwebview.h"

#include <QDir>
#include <QWebPage>
#include <QWebView>

void MainWindow::connectDocument(CDocument *pDocument)
{
    m_pArrivals->add(pDocument);
    connect(pDocument, &CDocument::arrivingChanged, this, [this] { m_pPanels->previewSoon(); });
    connect(pDocument, &CDocument::noticeChanged, this, &MainWindow::showNotice);
    connect(pDocument, &CDocument::reloaded, this, &MainWindow::onModifiedChanged);
    connect(pDocument, &CDocument::renamed, this, &MainWindow::onModifiedChanged);
    connect(
        pDocument, &CDocument::saveWanted, this,
        [this, pDocument] { saveDocument(pDocument, true); });
    connect(
        pDocument, &CDocument::saveAsWanted, this,
        [this, pDocument](const QString &strPath) { saveDocumentAs(pDocument, strPath); });
    connect(pDocument, &CDocument::refreshWanted, this,
            [this, pDocument] { refreshDocument(pDocument); });
    if (CEditWebView *pPage = pDocument->page()) {
        connectPage(pPage);
        connectEditor(pPage->sourceEdit());
        pPage->setLeaveQuestion([this, pDocument] { return m_pClosing->mayLeavePage(pDocument); });
    } else if (CHighlightEdit *pEditor = pDocument->editor()) {
        connectEditor(pEditor);
    }
}

void MainWindow::connectEditor(CHighlightEdit *pEditor)
{
    connect(g_pSettings, &CSettings::textFontSizeChanged, pEditor, &CHighlightEdit::onTextFontSize);
    connect(pEditor, &CHighlightEdit::modificationChanged, this, &MainWindow::onModifiedChanged);
    connect(pEditor, &CHighlightEdit::textChanged, this, &MainWindow::onEditPageContentChanged);
    connect(pEditor, &CHighlightEdit::cursorPositionChanged, this, &MainWindow::onSelectionChanged);
    connect(pEditor, &CHighlightEdit::selectionChanged, this, &MainWindow::onSelectionChanged);
    connect(pEditor, &CHighlightEdit::focusIn, this, &MainWindow::onWidgetFocusIn);
    connect(pEditor, &CHighlightEdit::findToTop, this, &MainWindow::onFindToTop);
    connect(pEditor, &CHighlightEdit::findToBottom, this, &MainWindow::onFindToBottom);
    connect(pEditor, &CHighlightEdit::cannotFound, this, &MainWindow::onCannotFound);
    connect(pEditor, &CHighlightEdit::replaceNum, this, &MainWindow::onReplaceNum);
    connect(pEditor, &CHighlightEdit::findCounted, m_pSearch, &CSearch::tellCount);
    connect(pEditor, &CHighlightEdit::statusMessage, this, &MainWindow::showStatusMessage);
}

void MainWindow::connectPage(CEditWebView *pPage)
{
    connect(pPage, &CEditWebView::focusIn, this, &MainWindow::onWidgetFocusIn);
    connect(pPage, &QWebView::loadFinished, this, &MainWindow::onLoadFinished);
    connect(pPage, &QWebView::selectionChanged, this, &MainWindow::onSelectionChanged);
    connect(pPage->page(), &QWebPage::contentsChanged, this, &MainWindow::onEditPageContentChanged);
    connect(pPage, &CEditWebView::modifiedChanged, this, &MainWindow::onModifiedChanged);
    connect(pPage, &CEditWebView::replaceNum, this, &MainWindow::onReplaceNum);
    connect(pPage, &CEditWebView::overUrl, this, &MainWindow::onOverUrl);
    connect(pPage, &CEditWebView::linkLeft, this, &MainWindow::onLinkLeft);
    connect(pPage, &CEditWebView::statusMessage, this, &MainWindow::showStatusMessage);
}

void MainWindow::on_actionNewText_triggered()
{
    m_pOpener->newText();
}

void MainWindow::on_actionNewHtml_triggered()
{
    m_pOpener->newPage();
}

void MainWindow::openFile(const QString &strPathFileName)
{
    // Dialogs and drops give "/" on every system.
    m_pOpener->open(QDir::toNativeSeparators(strPathFileName));
}
