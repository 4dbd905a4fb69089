#include "mainwindow/copener.h"

#include "app/csettings.h"
#include "app/filestate.h"
#include "app/plaintext.h"
#include "document/ceditordocument.h"
#include "document/cimagedocument.h"
#include "document/cpagedocument.h"
#include "document/notice.h"
#include "editor/chighlightedit.h"
#include "editor/textreading.h"
#include "mainwindow/ctabwidget.h"
#include "mainwindow/mainwindow.h"
#include "web/ctaster.h"
#include "web/pageengine.h"
#include "web/pagehazards.h"
#include "web/pagesource.h"
#include "web/pagesuffix.h"
#include "widgets/messagebox.h"

#include <QFileInfo>
#include <QImageReader>
#include <QLocale>
#include <QMessageBox>
#include <QScopedValueRollback>

namespace {

bool isImageSuffix(const QString &strSuffix)
{
    if (strSuffix == QLatin1String("svg") || strSuffix == QLatin1String("svgz"))
        return false; // SVG is text that people edit.
    const QList<QByteArray> lstFormats = QImageReader::supportedImageFormats();
    return std::any_of(lstFormats.cbegin(), lstFormats.cend(), [&](const QByteArray &format) {
        return QString::fromLatin1(format).toLower() == strSuffix;
    });
}

} // namespace

COpener::COpener(MainWindow *pWindow, CTabWidget *pTabs, CTaster *pTaster, bool *pLoading)
    : QObject(pWindow), m_pWindow(pWindow), m_pTabs(pTabs), m_pTaster(pTaster), m_pLoading(pLoading)
{
}

void COpener::open(const QString &strPathFileName)
{
    if (const CDocument *pDocument = m_pWindow->documents().withPath(strPathFileName)) {
        m_pTabs->setCurrentWidget(pDocument->widget());
        return;
    }
    const QString strSuffix = QFileInfo(strPathFileName).suffix().toLower();
    if (isPageSuffix(strSuffix))
        openPage(strPathFileName);
    else if (isImageSuffix(strSuffix))
        openImage(strPathFileName);
    else
        openText(strPathFileName);
    m_pWindow->onModifiedChanged();
}

// True when the file is very large: then the bar asks first.
bool COpener::isAskedFirst(const QString &strPath)
{
    if (m_setLargeWanted.contains(strPath) || !CDocument::isAboveCeiling(strPath))
        return false;
    SNotice notice;
    notice.strText =
        MainWindow::tr("%1 is %2. Open it anyway?")
            .arg(visibleName(strPath), QLocale().formattedDataSize(fileStateOf(strPath).nSize));
    notice.lstChoices = {{MainWindow::tr("Open"),
                          [this, strPath] {
                              m_pWindow->documents().recovery().dismiss();
                              m_setLargeWanted.insert(strPath);
                              open(strPath);
                          },
                          {}}};
    m_pWindow->documents().recovery().offer(notice);
    return true;
}

bool COpener::read(const QString &strPath, SFileContent *pContent)
{
    *pContent = CDocument::read(strPath);
    if (CDocument::isLoadable(*pContent))
        return true;
    showFailure(strPath, pContent->strError);
    return false;
}

void COpener::openPage(const QString &strPath)
{
    // The file is read before it gets a tab, or the page would show an error of its own.
    SFileContent content;
    if (isAskedFirst(strPath) || !read(strPath, &content))
        return;
    const SPageSource source = SPageSource::ofFile(content, QString());
    const QString strRefusal = refusalOf(strPath, source.strText);
    if (!strRefusal.isEmpty()) {
        openSourceOf(strPath, content, strRefusal);
        return;
    }
    m_pWindow->documents().beginLoad(strPath);
    {
        const QScopedValueRollback<bool> loading(*m_pLoading, true);
        CPageDocument *pDocument = addPageDocument();
        m_pWindow->documents().endLoadWith(pDocument, strPath);
        const CResult result = pDocument->loadDecoded(strPath, source);
        emit message(result.text());
        nameTab(*pDocument);
        if (!pDocument->isWhole())
            emit message(MainWindow::tr("The file is not all text: not all of it can be shown."));
    }
    m_pWindow->currentDocument().widget()->setFocus();
}

// Says why the page engine does not get the page unless the user insists; empty when it does.
QString COpener::refusalOf(const QString &strPath, const QString &strHtml) const
{
    if (!hasPageEngine())
        return MainWindow::tr("This build cannot show pages: this is the source of %1.")
            .arg(visibleName(strPath));
    if (m_pWindow->documents().loads().isBlamed(strPath))
        return MainWindow::tr("%1 crashed the program: this is its source.")
            .arg(visibleName(strPath));
    const EPageHazard hazard =
        m_setShownAnyway.contains(strPath) ? EPageHazard::None : pageHazard(strHtml);
    if (hazard == EPageHazard::None)
        return QString();
    return MainWindow::tr("Showing %1 could crash the program, because %2: this is its source.")
        .arg(visibleName(strPath), pageHazardReason(hazard));
}

// Opens the page as a text, without the page engine.
void COpener::openSourceOf(const QString &strPath, const SFileContent &content,
                           const QString &strWhy)
{
    if (hasPageEngine())
        m_pTaster->setKnown(strPath, CTaster::Result::Fails);
    showText(strPath, content);
    CDocument *pDocument = &m_pWindow->currentDocument();
    SNotice notice;
    notice.strText = strWhy;
    if (hasPageEngine())
        notice.lstChoices = {{MainWindow::tr("Show the page anyway"), [this, pDocument, strPath] {
                                  m_pWindow->documents().loads().forgive(strPath);
                                  m_setShownAnyway.insert(strPath);
                                  if (m_close(pDocument))
                                      open(strPath);
                              }}};
    pDocument->setNotice(CDocument::Topic::Loading, notice);
}

// False for an image that crashed the program before, unless the user insists.
bool COpener::mayOpenImage(const QString &strPath)
{
    if (!m_pWindow->documents().loads().isBlamed(strPath))
        return true;
    m_pTaster->setKnown(strPath, CTaster::Result::Fails);
    SNotice notice;
    notice.strText =
        MainWindow::tr("%1 is not opened: it crashed the program.").arg(visibleName(strPath));
    notice.lstChoices = {{MainWindow::tr("Show the picture anyway"), [this, strPath] {
                              m_pWindow->documents().recovery().dismiss();
                              m_pWindow->documents().loads().forgive(strPath);
                              open(strPath);
                          }}};
    m_pWindow->documents().recovery().offer(notice);
    return false;
}

void COpener::openImage(const QString &strPath)
{
    if (!mayOpenImage(strPath))
        return;
    m_pWindow->documents().beginLoad(strPath);
    m_pWindow->setCursor(Qt::WaitCursor);
    auto *pDocument = new CImageDocument(m_pWindow);
    pDocument->loadPicture(strPath);
    m_pWindow->documents().endLoad(strPath);
    addDocument(pDocument, QString(), QStringLiteral(":/res/image.png"));
    nameTab(*pDocument);
    m_pWindow->unsetCursor();
}

void COpener::openText(const QString &strPath)
{
    if (isAskedFirst(strPath))
        return;
    if (isShownInSlices(strPath)) {
        showTextInBackground(strPath);
        return;
    }
    SFileContent content;
    if (read(strPath, &content))
        showText(strPath, content);
}

CEditorDocument *COpener::addTextOfFile()
{
    CEditorDocument *pDocument = addTextDocument();
    CHighlightEdit *pEditor = pDocument->editor();
    // The second connection of an opened file: each of these slots runs twice per signal.
    connect(g_pSettings, &CSettings::textFontSizeChanged, pEditor, &CHighlightEdit::onTextFontSize);
    connect(pEditor, &CHighlightEdit::modificationChanged, m_pWindow,
            &MainWindow::onModifiedChanged);
    connect(pEditor, &CHighlightEdit::focusIn, m_pWindow, &MainWindow::onWidgetFocusIn);
    return pDocument;
}

void COpener::showText(const QString &strPath, const SFileContent &content)
{
    const QScopedValueRollback<bool> loading(*m_pLoading, true);
    CDocument *pDocument = addTextOfFile();
    m_pWindow->setCursor(Qt::WaitCursor);
    const CResult result = pDocument->load(strPath, content);
    emit message(result.text());
    nameTab(*pDocument);
    m_pWindow->unsetCursor();
    pDocument->editor()->setFocus();
    tellOfText(*pDocument);
}

// Chooses the language by the first lines, and again at the end: the first slice may hold less.
void COpener::showTextInBackground(const QString &strPath)
{
    CEditorDocument *pDocument = addTextOfFile();
    connect(pDocument, &CDocument::firstTextShown, this,
            [this, pDocument] { chooseLanguage(*pDocument); });
    connect(pDocument, &CDocument::loaded, this, [this, pDocument] {
        disconnect(pDocument, nullptr, this, nullptr);
        chooseLanguage(*pDocument);
        if (&m_pWindow->currentDocument() == pDocument)
            tellOfText(*pDocument);
    });
    emit message(QString());
    pDocument->loadInBackground(strPath);
    nameTab(*pDocument);
    pDocument->editor()->setFocus();
}

// Tells what the user has to know before saving.
void COpener::tellOfText(const CDocument &document)
{
    if (!document.isWhole())
        emit message(MainWindow::tr("The file is not all text: not all of it can be shown."));
    else if (!document.isCodecSure())
        emit message(
            MainWindow::tr("The encoding is a guess: %1. Format, Text Codec reads the file in "
                           "another.")
                .arg(document.editor()->codecName()));
    else if (!QFileInfo(document.path()).isWritable())
        emit message(MainWindow::tr("The file is read-only."));
}

void COpener::showFailure(const QString &strPath, const QString &strReason)
{
    emit message(strReason);
    showMessage(m_pWindow, QMessageBox::Critical, MainWindow::tr("Fail to open file"),
                MainWindow::tr("Fail to open file(%1).").arg(visibleName(strPath)));
}
