// Opening a file in the right kind of view.
#include "mainwindow/mainwindow.h"

#include "app/csettings.h"
#include "app/plaintext.h"
#include "document/cimagedocument.h"
#include "document/cpagedocument.h"
#include "editor/chighlightedit.h"
#include "mainwindow/csidepanels.h"
#include "mainwindow/ctabwidget.h"
#include "web/cpreviewwidget.h"

#include <QFileInfo>
#include <QImageReader>
#include <QScopedValueRollback>

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

void MainWindow::openFile(const QString &strPathFileName)
{
    if (const CDocument *pDocument = m_pDocuments->withPath(strPathFileName)) {
        m_pTabs->setCurrentWidget(pDocument->widget());
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
    // Read before a tab is there: the page would show an error of its own under this path.
    const SFileContent content = CDocument::read(strPath);
    if (!CDocument::isLoadable(content)) {
        showOpenFailure(strPath, content.strError);
        return;
    }
    if (m_pDocuments->loads().isBlamed(strPath)) {
        openSourceOf(strPath, content);
        return;
    }
    m_pDocuments->beginLoad(strPath);
    {
        const QScopedValueRollback<bool> loading(m_bLoading, true);
        CPageDocument *pDocument = addPageDocument();
        m_pDocuments->endLoadWith(pDocument, strPath);
        const Result result = pDocument->load(strPath, content);
        showStatusMessage(result.text());
        nameTab(*pDocument);
    }
    currentDocument().widget()->setFocus();
}

// As a text, without the engine that ended the program over it.
void MainWindow::openSourceOf(const QString &strPath, const SFileContent &content)
{
    m_pPanels->preview()->taster()->setKnown(strPath, CTaster::Result::Fails);
    showText(strPath, content);
    CDocument *pDocument = &currentDocument();
    SNotice notice;
    notice.strText = tr("The program ended while it loaded %1: this is its source.").arg(strPath);
    notice.lstChoices = {{tr("Show the page anyway"), [this, pDocument, strPath] {
                              m_pDocuments->loads().forgive(strPath);
                              if (closeDocument(pDocument))
                                  openFile(strPath);
                          }}};
    pDocument->setNotice(CDocument::Topic::Loading, notice);
}

// Not at all where the program ended over it, unless the user says so.
bool MainWindow::mayOpenImage(const QString &strPath)
{
    if (!m_pDocuments->loads().isBlamed(strPath))
        return true;
    m_pPanels->preview()->taster()->setKnown(strPath, CTaster::Result::Fails);
    SNotice notice;
    notice.strText = tr("%1 is not opened: the program ended while it loaded it.").arg(strPath);
    notice.lstChoices = {{tr("Show the picture anyway"), [this, strPath] {
                              m_pDocuments->recovery().dismiss();
                              m_pDocuments->loads().forgive(strPath);
                              openFile(strPath);
                          }}};
    m_pDocuments->recovery().offer(notice);
    return false;
}

void MainWindow::openImage(const QString &strPath)
{
    if (!mayOpenImage(strPath))
        return;
    m_pDocuments->beginLoad(strPath);
    setCursor(Qt::WaitCursor);
    auto *pDocument = new CImageDocument(this);
    pDocument->loadPicture(strPath);
    m_pDocuments->endLoad(strPath);
    addDocument(pDocument, QString(), QStringLiteral(":/res/image.png"));
    nameTab(*pDocument);
    unsetCursor();
}

void MainWindow::openText(const QString &strPath)
{
    const SFileContent content = CDocument::read(strPath);
    if (!CDocument::isLoadable(content)) {
        showOpenFailure(strPath, content.strError);
        return;
    }
    showText(strPath, content);
}

void MainWindow::showText(const QString &strPath, const SFileContent &content)
{
    const QScopedValueRollback<bool> loading(m_bLoading, true);
    CDocument *pDocument = addTextDocument();
    CHighlightEdit *pEditor = pDocument->editor();
    // Made a second time for an opened file: each of these slots runs twice per signal.
    connect(g_pSettings, &CSettings::textFontSizeChanged, pEditor, &CHighlightEdit::onTextFontSize);
    connect(pEditor, &CHighlightEdit::modificationChanged, this, &MainWindow::onModifiedChanged);
    connect(pEditor, &CHighlightEdit::focusIn, this, &MainWindow::onWidgetFocusIn);

    setCursor(Qt::WaitCursor);
    const Result result = pDocument->load(strPath, content);
    showStatusMessage(result.text());
    nameTab(*pDocument);
    unsetCursor();
    pEditor->setFocus();
    if (!pDocument->isWhole())
        showStatusMessage(tr("The file is not all text: not all of it can be shown."));
    else if (!pDocument->isCodecSure())
        showStatusMessage(tr("The encoding is a guess: %1. Format, Text Codec reads the file in "
                             "another.")
                              .arg(pEditor->codecName()));
    else if (!QFileInfo(strPath).isWritable())
        showStatusMessage(tr("The file is read-only."));
}

void MainWindow::showOpenFailure(const QString &strPath, const QString &strReason)
{
    showStatusMessage(strReason);
    showMessage(this, QMessageBox::Critical, tr("Fail to open file"),
                tr("Fail to open file(%1).").arg(strPath));
}
