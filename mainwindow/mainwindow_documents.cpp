// New documents, and how a tab names one.
#include "mainwindow/mainwindow.h"

#include "app/csettings.h"
#include "document/ceditordocument.h"
#include "document/cpagedocument.h"
#include "editor/chighlightedit.h"
#include "highlight/chighlightmgt.h"
#include "mainwindow/csearch.h"
#include "mainwindow/ctabwidget.h"
#include "web/ceditwebview.h"

#include <QFileInfo>
#include <QScopedValueRollback>
#include <QTextBlock>

namespace {

// As many as may name a text's language.
QStringList firstLines(const QTextDocument &document)
{
    const int nLines = 5;
    QStringList lstLines;
    for (QTextBlock block = document.begin(); block.isValid() && lstLines.size() < nLines;
         block = block.next())
        lstLines.append(block.text().left(500));
    return lstLines;
}

} // namespace

// The tab is there and current before the document has any content.
void MainWindow::addDocument(CDocument *pDocument, const QString &strTitle, const QString &strIcon)
{
    m_pDocuments->add(pDocument);
    const int nIndex = m_pTabs->addTab(pDocument->widget(), QIcon(strIcon), strTitle);
    m_pTabs->setTabToolTip(nIndex, tr("New file"));
    m_pTabs->setCurrentIndex(nIndex);
    connect(pDocument, &CDocument::widgetChanged, m_pTabs, &CTabWidget::replaceWidget);
    connect(pDocument, &CDocument::noticeChanged, this, &MainWindow::showNotice);
    connect(pDocument, &CDocument::reloaded, this, &MainWindow::onModifiedChanged);
    connect(pDocument, &CDocument::renamed, this, [this, pDocument] {
        const int nRenamed = m_pTabs->indexOf(pDocument->widget());
        m_pTabs->setPlainTabText(nRenamed, pDocument->title());
        m_pTabs->setPlainTabToolTip(nRenamed, pDocument->path());
        refreshWindow();
    });
    connect(pDocument, &CDocument::saveWanted, this,
            [this, pDocument] { saveDocument(pDocument, true); });
    connect(pDocument, &CDocument::refreshWanted, this,
            [this, pDocument] { refreshDocument(pDocument); });
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

CDocument *MainWindow::addTextDocument()
{
    auto *pDocument = new CEditorDocument(this);
    CHighlightEdit *pEditor = pDocument->editor();
    pEditor->setModified(false);
    pEditor->setLineWrap(g_pSettings->getLineWrap());
    addDocument(pDocument, tr("New Text"), QStringLiteral(":/res/new_text.svg"));
    connectEditor(pEditor);
    return pDocument;
}

void MainWindow::on_actionNewText_triggered()
{
    addTextDocument()->widget()->setFocus();
    refreshWindow();
}

CPageDocument *MainWindow::addPageDocument()
{
    auto *pDocument = new CPageDocument(this);
    CEditWebView *pPage = pDocument->page();
    pPage->setModified(false);
    addDocument(pDocument, tr("New HTML"), QStringLiteral(":/res/new.png"));

    connect(pPage, &CEditWebView::focusIn, this, &MainWindow::onWidgetFocusIn);
    CHighlightEdit *pSource = pPage->sourceEdit();
    pSource->setLineWrap(g_pSettings->getLineWrap());
    connectEditor(pSource);
    pSource->setDefinition(m_pHighlightMgt->definitionForFile(QStringLiteral("xxx.html")));

    connect(pPage, &QWebView::loadFinished, this, &MainWindow::onLoadFinished);
    connect(pPage, &QWebView::selectionChanged, this, &MainWindow::onSelectionChanged);
    connect(pPage->page(), &QWebPage::contentsChanged, this, &MainWindow::onEditPageContentChanged);
    connect(pPage, &CEditWebView::modifiedChanged, this, &MainWindow::onModifiedChanged);
    connect(pPage, &CEditWebView::replaceNum, this, &MainWindow::onReplaceNum);
    connect(pPage, &CEditWebView::notice, this, &MainWindow::showStatusMessage);
    connect(pPage, &CEditWebView::overUrl, this, &MainWindow::onOverUrl);
    connect(pPage, &CEditWebView::linkLeft, this, &MainWindow::onLinkLeft);
    connect(pPage, &CEditWebView::statusMessage, this, &MainWindow::showStatusMessage);
    pPage->setLeaveQuestion([this, pDocument] { return mayLeavePage(pDocument); });
    if (g_pSettings->getIsHtmlText())
        pDocument->showSource(true);
    return pDocument;
}

void MainWindow::on_actionNewHtml_triggered()
{
    {
        const QScopedValueRollback<bool> loading(m_bLoading, true);
        addPageDocument()->page()->startNewPage();
    }
    currentDocument().widget()->setFocus();
    refreshWindow();
}

// Name, tool tip, icon and language of a document that belongs to a file.
void MainWindow::nameTab(const CDocument &document)
{
    const QString strPath = document.path();
    const int nIndex = m_pTabs->indexOf(document.widget());
    if (document.kind() == CDocument::Kind::Page) {
        const CEditWebView *pPage = document.page();
        m_pTabs->setPlainTabText(nIndex,
                                 pPage->title().isEmpty() ? tr("(Untitled)") : pPage->title());
        const QIcon icon = pPage->icon();
        m_pTabs->setTabIcon(nIndex,
                            icon.isNull() ? QIcon(QStringLiteral(":/res/html_text.svg")) : icon);
        return; // The tool tip stays that of a new page.
    }
    m_pTabs->setPlainTabText(nIndex, QFileInfo(strPath).fileName());
    if (document.page())
        return;
    m_pTabs->setPlainTabToolTip(nIndex, strPath);
    if (CHighlightEdit *pEditor = document.editor()) {
        pEditor->setDefinition(m_pHighlightMgt->definitionForContent(
            QFileInfo(strPath).fileName(), firstLines(*pEditor->document())));
        const bool bSvg =
            pEditor->suffix() == QLatin1String("svg") || pEditor->suffix() == QLatin1String("svgz");
        m_pTabs->setTabIcon(nIndex,
                            QIcon(bSvg ? QStringLiteral(":/res/file_text_svg.png")
                                       : QStringLiteral(":/res/file_text.png")));
    }
}

void MainWindow::recover(const SDraft &draft)
{
    {
        const QScopedValueRollback<bool> loading(m_bLoading, true);
        CDocument *pDocument = draft.bPage ? addPageDocument() : addTextDocument();
        m_pDocuments->restore(pDocument, draft);
        if (!draft.strPath.isEmpty())
            nameTab(*pDocument);
    }
    refreshWindow();
}
