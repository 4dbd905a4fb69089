#include "mainwindow/cfinddock.h"

#include "app/filestate.h"
#include "document/cpagedocument.h"
#include "editor/chighlightedit.h"
#include "findinfiles/cwidgetfindinfiles.h"
#include "mainwindow/cworkprogress.h"
#include "mainwindow/mainwindow.h"
#include "web/ceditwebview.h"

#include <QDir>
#include <QDockWidget>
#include <QPointer>
#include <QTextBlock>
#include <QWebView>

CFindDock::CFindDock(MainWindow *pWindow, std::function<QString()> folder)
    : QObject(pWindow),
      m_pWindow(pWindow),
      m_folder(std::move(folder)),
      m_pDock(new QDockWidget(tr("Find in Files"), pWindow))
{
    m_pDock->setObjectName(QStringLiteral("Find in Files"));
    pWindow->addDockWidget(Qt::BottomDockWidgetArea, m_pDock);
    m_pDock->hide();
    connect(m_pDock, &QDockWidget::visibilityChanged, this, [this](bool bVisible) {
        if (bVisible)
            makePanel();
    });
}

QWidget *CFindDock::panel() const
{
    return m_pPanel;
}

// Made when it is first shown, so that the start of the program does not wait for it.
CWidgetFindInFiles *CFindDock::makePanel()
{
    if (m_pPanel)
        return m_pPanel;
    m_pPanel = new CWidgetFindInFiles(m_pDock);
    m_pDock->setWidget(m_pPanel);
    m_pPanel->setFolder(m_folder());
    m_pPanel->setGuard([this](const QString &strPath) { return whyNotWrite(strPath); });
    connect(m_pPanel, &CWidgetFindInFiles::matchActivated, this, &CFindDock::onMatchActivated);
    connect(m_pPanel, &CWidgetFindInFiles::fileReplaced, this, &CFindDock::onFileReplaced);
    connect(m_pPanel, &CWidgetFindInFiles::statusMessage, this, &CFindDock::message);
    connect(m_pPanel, &CWidgetFindInFiles::busyChanged, this, &CFindDock::onBusyChanged);
    return m_pPanel;
}

void CFindDock::onBusyChanged(bool bBusy, const QString &strWhat)
{
    CWorkProgress &progress = m_pWindow->workProgress();
    progress.end(m_nWork);
    if (bBusy)
        m_nWork = progress.begin(m_pPanel, strWhat, [this] { m_pPanel->onCancel(); });
}

void CFindDock::show(const QString &strText)
{
    const bool bOneLine = !strText.contains(QChar::ParagraphSeparator);
    makePanel()->setFolder(m_folder());
    m_pDock->show();
    m_pDock->raise();
    m_pPanel->prepare(bOneLine ? strText : QString());
}

// Refuses a file that is open with unsaved text, however its path is spelled there.
QString CFindDock::whyNotWrite(const QString &strPath) const
{
    const SFileState state = fileStateOf(strPath);
    for (const CDocument *pDocument : m_pWindow->documents().all())
        if (pDocument->isModified() && isSameFile(state, fileStateOf(pDocument->path())))
            return tr("It is open with unsaved changes.");
    return QString();
}

void CFindDock::onMatchActivated(const QString &strPath, int nLine, int nColumn, int nLength)
{
    const QString strNative = QDir::toNativeSeparators(strPath);
    const bool bNew = !m_pWindow->documents().withPath(strNative);
    m_pWindow->openFile(strNative);
    CDocument *pDocument = m_pWindow->documents().withPath(strNative);
    if (!pDocument)
        return;
    if (!pDocument->page() || !bNew) {
        selectMatch(pDocument, nLine, nColumn, nLength);
        return;
    }
    // The page's source is there once it has loaded.
    auto *pOnce = new QObject(pDocument);
    connect(pDocument->page(), &QWebView::loadFinished, pOnce, [=] {
        pOnce->deleteLater();
        if (&m_pWindow->currentDocument() == pDocument)
            selectMatch(pDocument, nLine, nColumn, nLength);
    });
}

// Selects the match in the source of a page, which may differ from its file.
void CFindDock::selectMatch(CDocument *pDocument, int nLine, int nColumn, int nLength)
{
    if (!pDocument->editor() && pDocument->page())
        m_pWindow->on_actionSwapHtml_triggered();
    CHighlightEdit *pEditor = pDocument->editor();
    if (pEditor)
        pEditor->whenArrived(0, nLine, [=] { selectInEditor(pEditor, nLine, nColumn, nLength); });
}

void CFindDock::selectInEditor(CHighlightEdit *pEditor, int nLine, int nColumn, int nLength)
{
    if (!pEditor->goToLine(nLine)) {
        emit message(tr("The text has changed since the search."));
        return;
    }
    // The document may have been edited: the selection ends with the line at the latest.
    QTextCursor cursor = pEditor->textCursor();
    const int nRoom = cursor.block().length() - 1;
    const int nStart = qMin(nColumn, nRoom);
    cursor.setPosition(cursor.block().position() + nStart);
    cursor.setPosition(cursor.position() + qMin(nLength, nRoom - nStart), QTextCursor::KeepAnchor);
    pEditor->setTextCursor(cursor);
    pEditor->setFocus();
}

void CFindDock::onFileReplaced(const QString &strPath)
{
    CDocument *pDocument = m_pWindow->documents().withPath(strPath);
    if (!pDocument || pDocument->isModified())
        return; // The notice bar shows the reason.
    const CResult result = pDocument->reload();
    if (!result.isDone())
        emit message(result.text());
}
