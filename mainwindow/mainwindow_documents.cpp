#include "mainwindow/mainwindow.h"

#include "app/csettings.h"
#include "app/plaintext.h"
#include "app/textcodecs.h"
#include "editor/chighlightedit.h"
#include "mainwindow/cdocumentguard.h"
#include "mainwindow/ctabwidget.h"
#include "ui_mainwindow.h"
#include "web/ceditwebview.h"
#include "web/cimagewidget.h"

#include <QCloseEvent>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QScopedValueRollback>
#include <QTextDocument>

namespace {

bool isImageSuffix(const QString &strSuffix)
{
    if (strSuffix == QLatin1String("svg") || strSuffix == QLatin1String("svgz"))
        return false; // Text that one edits.
    const QList<QByteArray> lstFormats = QImageReader::supportedImageFormats();
    return std::any_of(lstFormats.cbegin(), lstFormats.cend(), [&](const QByteArray &format) {
        return QString::fromLatin1(format).toLower() == strSuffix;
    });
}

} // namespace

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
}

CHighlightEdit *MainWindow::addTextDocument()
{
    auto *pEditor = new CHighlightEdit(this);
    pEditor->setModified(false);
    pEditor->setLineWrap(g_pSettings->getLineWrap());
    const int nIndex =
        m_pTabs->addTab(pEditor, QIcon(QStringLiteral(":/res/new_text.svg")), tr("New Text"));
    m_pTabs->setTabToolTip(nIndex, tr("New file"));
    m_pTabs->setCurrentIndex(nIndex);
    connectEditor(pEditor);
    return pEditor;
}

void MainWindow::on_actionNewText_triggered()
{
    addTextDocument()->setFocus();
    refreshWindow();
}

CEditWebView *MainWindow::addPageDocument()
{
    auto *pPage = new CEditWebView(this);
    pPage->setModified(false);
    const int nIndex =
        m_pTabs->addTab(pPage, QIcon(QStringLiteral(":/res/new.png")), tr("New HTML"));
    m_pTabs->setTabToolTip(nIndex, tr("New file"));
    m_pTabs->setCurrentIndex(nIndex);

    connect(pPage, &CEditWebView::focusIn, this, &MainWindow::onWidgetFocusIn);
    CHighlightEdit *pSource = pPage->sourceEdit();
    pSource->setLineWrap(g_pSettings->getLineWrap());
    connectEditor(pSource);
    chooseLanguage(pSource, QStringLiteral("xxx.html"));

    connect(pPage, &QWebView::loadFinished, this, &MainWindow::onLoadFinished);
    connect(pPage, &QWebView::selectionChanged, this, &MainWindow::onSelectionChanged);
    connect(pPage->page(), &QWebPage::contentsChanged, this, &MainWindow::onEditPageContentChanged);
    connect(pPage, &CEditWebView::modifiedChanged, this, &MainWindow::onModifiedChanged);
    connect(pPage, &CEditWebView::overUrl, this, &MainWindow::onOverUrl);
    connect(pPage, &CEditWebView::linkLeft, this, &MainWindow::onLinkLeft);
    pPage->setLeaveQuestion([this, pPage] { return askBeforeClosing(CDocument(pPage)); });
    connect(pPage, &CEditWebView::statusMessage, this, &MainWindow::showStatusMessage);
    if (g_pSettings->getIsHtmlText())
        on_actionSwapHtml_triggered();
    return pPage;
}

void MainWindow::on_actionNewHtml_triggered()
{
    {
        const QScopedValueRollback<bool> loading(m_bLoading, true);
        addPageDocument();
    }
    currentDocument().widget()->setFocus();
    refreshWindow();
}

int MainWindow::indexOfPath(const QString &strPath) const
{
    for (int n = 0; n < m_pTabs->count(); ++n) {
        if (CDocument(m_pTabs->widget(n)).path() == strPath)
            return n;
    }
    return -1;
}

void MainWindow::openFile(const QString &strPathFileName)
{
    const int nIndex = indexOfPath(strPathFileName);
    if (nIndex >= 0) {
        m_pTabs->setCurrentIndex(nIndex);
        return;
    }
    const QString strSuffix = QFileInfo(strPathFileName).suffix().toLower();
    if (strSuffix == QLatin1String("html") || strSuffix == QLatin1String("htm"))
        openPage(strPathFileName);
    else if (isImageSuffix(strSuffix))
        openImage(strPathFileName);
    else
        openText(strPathFileName);
    refreshWindow();
}

void MainWindow::openPage(const QString &strPath)
{
    // Asked before a tab is there: the page would show an error of its own under this path.
    QFile file(strPath);
    if (QFileInfo(strPath).isDir() || !file.open(QIODevice::ReadOnly)) {
        showMessage(this, QMessageBox::Critical, tr("Fail to open file"),
                    tr("Fail to open file(%1).").arg(strPath));
        return;
    }
    file.close();
    {
        const QScopedValueRollback<bool> loading(m_bLoading, true);
        CEditWebView *pPage = addPageDocument();
        const int nIndex = m_pTabs->currentIndex();
        pPage->setFilePath(strPath);
        pPage->loadFile(strPath);
        if (currentDocument().kind() == CDocument::Kind::Page) {
            pPage->setModified(false);
            const QString strTitle = pPage->title();
            m_pTabs->setPlainTabText(nIndex, strTitle.isEmpty() ? tr("(Untitled)") : strTitle);
            const QIcon icon = pPage->icon();
            m_pTabs->setTabIcon(
                nIndex, icon.isNull() ? QIcon(QStringLiteral(":/res/html_text.svg")) : icon);
        } else {
            m_pTabs->setPlainTabText(nIndex, QFileInfo(strPath).fileName());
        }
        m_pGuard->documentOpened(currentDocument());
    }
    currentDocument().widget()->setFocus();
}

void MainWindow::openImage(const QString &strPath)
{
    setCursor(Qt::WaitCursor);
    auto *pImage = new CImageWidget(this);
    pImage->setImageFile(strPath);
    const int nIndex = m_pTabs->addTab(pImage, QIcon(QStringLiteral(":/res/image.png")), QString());
    m_pTabs->setPlainTabText(nIndex, QFileInfo(strPath).fileName());
    m_pTabs->setPlainTabToolTip(nIndex, strPath);
    m_pTabs->setCurrentIndex(nIndex);
    unsetCursor();
    m_pGuard->documentOpened(currentDocument());
}

void MainWindow::openText(const QString &strPath)
{
    QFile file(strPath);
    if (QFileInfo(strPath).isDir() || !file.open(QIODevice::ReadOnly)) {
        showMessage(this, QMessageBox::Critical, tr("Fail to open file"),
                    tr("Fail to open file(%1).").arg(strPath));
        return;
    }
    const QScopedValueRollback<bool> loading(m_bLoading, true);
    CHighlightEdit *pEditor = addTextDocument();
    // Made a second time for an opened file: each of these slots runs twice per signal.
    connect(g_pSettings, &CSettings::textFontSizeChanged, pEditor, &CHighlightEdit::onTextFontSize);
    connect(pEditor, &CHighlightEdit::modificationChanged, this, &MainWindow::onModifiedChanged);
    connect(pEditor, &CHighlightEdit::focusIn, this, &MainWindow::onWidgetFocusIn);

    setCursor(Qt::WaitCursor);
    pEditor->setPathFileName(strPath);
    const QByteArray bytes = file.readAll();
    file.close();
    pEditor->setTextData(bytes, false);
    showTextFile(pEditor, strPath);
    unsetCursor();
    pEditor->setFocus();
    m_pGuard->documentOpened(currentDocument());
    if (!isWholeText(codecForName(pEditor->codecName()), bytes, pEditor->document()->toRawText())) {
        m_pGuard->setNotWhole(currentDocument());
        showStatusMessage(tr("The file is not all text: not all of it can be shown."));
    } else if (!QFileInfo(strPath).isWritable()) {
        showStatusMessage(tr("The file is read-only."));
    }
}

// Language, title and icon of a text that belongs to a file.
void MainWindow::showTextFile(CHighlightEdit *pEditor, const QString &strPath)
{
    pEditor->setPathFileName(strPath);
    chooseLanguage(pEditor, strPath);
    const int nIndex = m_pTabs->indexOf(pEditor);
    m_pTabs->setPlainTabText(nIndex, QFileInfo(strPath).fileName());
    m_pTabs->setPlainTabToolTip(nIndex, strPath);
    m_pTabs->setCurrentIndex(nIndex);
    const bool bSvg =
        pEditor->suffix() == QLatin1String("svg") || pEditor->suffix() == QLatin1String("svgz");
    m_pTabs->setTabIcon(nIndex,
                        QIcon(bSvg ? QStringLiteral(":/res/file_text_svg.png")
                                   : QStringLiteral(":/res/file_text.png")));
}

void MainWindow::onEditPageContentChanged()
{
    if (m_bLoading)
        return;
    if (const auto *pWebPage = qobject_cast<QWebPage *>(sender())) {
        // A load changes the contents as well; the page puts its flag back when it has ended.
        if (auto *pPage = qobject_cast<CEditWebView *>(pWebPage->view()))
            pPage->setModified(true);
        updateTitle();
    }
    m_pGuard->documentChanged(currentDocument());
    updateActions();
    m_timerPreview.start();
}

void MainWindow::on_actionRefresh_triggered()
{
    const CDocument document = currentDocument();
    if (document.isModified()) {
        const auto answer = showMessage(this, QMessageBox::Warning, tr("File Modified"),
                                        tr("Are you sure to refresh and discard the modification?"),
                                        QMessageBox::Yes | QMessageBox::Cancel, QMessageBox::Yes);
        if (answer != QMessageBox::Yes)
            return;
    }
    if (document.reload())
        m_pGuard->documentReloaded(document);
    else
        showStatusMessage(tr("The file cannot be read: %1").arg(document.path()));
    refreshWindow();
}

bool MainWindow::askBeforeClosing(const CDocument &document)
{
    if (!document.isModified())
        return true;
    const bool bPage = document.page();
    const auto answer = showMessage(
        this, QMessageBox::Warning, bPage ? tr("Page modified") : tr("File modified"),
        bPage ? tr("Do you save the modified page?") : tr("Do you save the modified file?"),
        QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    if (answer == QMessageBox::Yes)
        return on_actionSave_triggered(); // Deliberately the current document, whichever was asked
                                          // for.
    return answer == QMessageBox::No;
}

void MainWindow::onTabCloseRequested(int nIndex)
{
    const CDocument document(m_pTabs->widget(nIndex));
    if (document.kind() == CDocument::Kind::None || !askBeforeClosing(document))
        return;
    m_pGuard->documentClosed(document);
    document.destroy();
    refreshWindow();
}

void MainWindow::closeEvent(QCloseEvent *pEvent)
{
    bool bYesToAll = false;
    for (int n = m_pTabs->count() - 1; n >= 0; --n) {
        if (!closeTabForGood(n, &bYesToAll)) {
            pEvent->ignore();
            return;
        }
    }
    pEvent->accept();
}

bool MainWindow::closeTabForGood(int nIndex, bool *pYesToAll)
{
    const CDocument document(m_pTabs->widget(nIndex));
    if (document.isModified()) {
        m_pTabs->setCurrentIndex(nIndex);
        if (!*pYesToAll) {
            QString strText = tr("Do you save the modified file?");
            if (!document.path().isEmpty())
                strText += QStringLiteral("\n(%1)").arg(document.path());
            const auto answer =
                showMessage(this, QMessageBox::Warning, tr("File Modified"), strText,
                            QMessageBox::YesToAll | QMessageBox::No | QMessageBox::Cancel,
                            QMessageBox::YesToAll);
            if (answer != QMessageBox::YesToAll && answer != QMessageBox::No)
                return false;
            *pYesToAll = answer == QMessageBox::YesToAll;
        }
        if (*pYesToAll && !on_actionSave_triggered())
            return false;
    }
    m_pGuard->documentClosed(document);
    document.destroy();
    return true;
}

void MainWindow::onTabDbClick(int nIndex)
{
    if (nIndex < 0)
        on_actionNewText_triggered();
}
