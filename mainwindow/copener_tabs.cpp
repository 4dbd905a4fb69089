// New documents, and how a tab names one.
#include "mainwindow/copener.h"

#include "app/csettings.h"
#include "app/plaintext.h"
#include "document/ceditordocument.h"
#include "document/cpagedocument.h"
#include "editor/chighlightedit.h"
#include "highlight/chighlightmgt.h"
#include "mainwindow/ctabwidget.h"
#include "mainwindow/mainwindow.h"
#include "web/ceditwebview.h"

#include <QFileInfo>
#include <QIcon>
#include <QScopedValueRollback>
#include <QTextBlock>

namespace {

// The lines that may name the language of the text.
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

void COpener::addDocument(CDocument *pDocument, const QString &strTitle, const QString &strIcon)
{
    m_pWindow->documents().add(pDocument);
    const int nIndex = m_pTabs->addTab(pDocument->widget(), QIcon(strIcon), strTitle);
    m_pTabs->setTabToolTip(nIndex, MainWindow::tr("New file"));
    m_pTabs->setCurrentIndex(nIndex);
    connect(pDocument, &CDocument::widgetChanged, m_pTabs, &CTabWidget::replaceWidget);
    connect(pDocument, &CDocument::renamed, m_pTabs, [this, pDocument] {
        const int nRenamed = m_pTabs->indexOf(pDocument->widget());
        m_pTabs->setPlainTabText(nRenamed, pDocument->title());
        m_pTabs->setPlainTabToolTip(nRenamed, pDocument->path());
    });
    emit added(pDocument);
}

CEditorDocument *COpener::addTextDocument()
{
    auto *pDocument = new CEditorDocument(m_pWindow);
    pDocument->editor()->setModified(false);
    pDocument->editor()->setLineWrap(g_pSettings->getLineWrap());
    addDocument(pDocument, MainWindow::tr("New Text"), QStringLiteral(":/res/new_text.svg"));
    return pDocument;
}

CPageDocument *COpener::addPageDocument()
{
    auto *pDocument = new CPageDocument(m_pWindow);
    pDocument->page()->setModified(false);
    CHighlightEdit *pSource = pDocument->page()->sourceEdit();
    pSource->setLineWrap(g_pSettings->getLineWrap());
    addDocument(pDocument, MainWindow::tr("New HTML"), QStringLiteral(":/res/new.png"));
    pSource->setDefinition(
        m_pWindow->highlightMgt()->definitionForFile(QStringLiteral("xxx.html")));
    if (g_pSettings->getIsHtmlText())
        pDocument->showSource(true);
    return pDocument;
}

void COpener::newText()
{
    addTextDocument()->widget()->setFocus();
    m_pWindow->onModifiedChanged();
}

void COpener::newPage()
{
    {
        const QScopedValueRollback<bool> loading(*m_pLoading, true);
        addPageDocument()->page()->startNewPage();
    }
    m_pWindow->currentDocument().widget()->setFocus();
    m_pWindow->onModifiedChanged();
}

// Gives a document that belongs to a file its name, tool tip, icon and language.
void COpener::nameTab(const CDocument &document)
{
    const QString strPath = document.path();
    const int nIndex = m_pTabs->indexOf(document.widget());
    if (document.kind() == CDocument::Kind::Page) {
        const CEditWebView *pPage = document.page();
        m_pTabs->setPlainTabText(
            nIndex, pPage->title().isEmpty() ? MainWindow::tr("(Untitled)") : pPage->title());
        const QIcon icon = pPage->icon();
        m_pTabs->setTabIcon(nIndex,
                            icon.isNull() ? QIcon(QStringLiteral(":/res/html_text.svg")) : icon);
        return; // The tool tip stays that of a new page.
    }
    m_pTabs->setPlainTabText(
        nIndex,
        visibleName(document.isArriving() ? document.title() : QFileInfo(strPath).fileName()));
    if (document.page())
        return;
    m_pTabs->setPlainTabToolTip(nIndex, strPath);
    if (CHighlightEdit *pEditor = document.editor()) {
        chooseLanguage(document);
        const bool bSvg =
            pEditor->suffix() == QLatin1String("svg") || pEditor->suffix() == QLatin1String("svgz");
        m_pTabs->setTabIcon(nIndex,
                            QIcon(bSvg ? QStringLiteral(":/res/file_text_svg.png")
                                       : QStringLiteral(":/res/file_text.png")));
    }
}

// Setting a definition colours every line again, so the same one is not set twice.
void COpener::chooseLanguage(const CDocument &document)
{
    CHighlightEdit *pEditor = document.editor();
    const QVariantMap mapDefinition = m_pWindow->highlightMgt()->definitionForContent(
        QFileInfo(document.path()).fileName(), firstLines(*pEditor->document()));
    if (!pEditor->hasDefinition(mapDefinition))
        pEditor->setDefinition(mapDefinition);
}

void COpener::recover(const SDraft &draft)
{
    {
        const QScopedValueRollback<bool> loading(*m_pLoading, true);
        CDocument *pDocument =
            draft.bPage ? static_cast<CDocument *>(addPageDocument()) : addTextDocument();
        m_pWindow->documents().restore(pDocument, draft);
        if (!draft.strPath.isEmpty())
            nameTab(*pDocument);
    }
    m_pWindow->onModifiedChanged();
}
