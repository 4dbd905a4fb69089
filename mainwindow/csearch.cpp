#include "mainwindow/csearch.h"

#include "app/csettings.h"
#include "editor/cdlgfind.h"
#include "editor/cdlggo.h"
#include "editor/chighlightedit.h"
#include "editor/creplaceall.h"
#include "mainwindow/cworkprogress.h"
#include "mainwindow/mainwindow.h"
#include "web/ceditwebview.h"

#include <QRect>
#include <QTextCursor>

namespace {

// The place of the selection, in screen coordinates.
QRect selectedSpot(const CHighlightEdit &edit)
{
    QTextCursor start = edit.textCursor();
    start.setPosition(start.selectionStart());
    const QRect spot = edit.cursorRect(start).united(edit.cursorRect(edit.textCursor()));
    return {edit.viewport()->mapToGlobal(spot.topLeft()), spot.size()};
}

// Only a selection within one line is text to find; a larger one is a place to search in.
bool isOneLine(const QString &strText)
{
    return !strText.contains(QChar::ParagraphSeparator) && !strText.contains(QLatin1Char('\n'));
}

} // namespace

CSearch::CSearch(MainWindow *pWindow) : QObject(pWindow), m_pWindow(pWindow) { }

CDocument &CSearch::document() const
{
    return m_pWindow->currentDocument();
}

CDlgFind *CSearch::dialog()
{
    if (!m_pDlgFind) {
        m_pDlgFind = new CDlgFind(m_pWindow);
        connect(m_pDlgFind, &CDlgFind::emitFindNext, m_pWindow, &MainWindow::onFindNext);
        connect(m_pDlgFind, &CDlgFind::emitReplace, m_pWindow, &MainWindow::onReplace);
        connect(m_pDlgFind, &CDlgFind::emitReplaceAll, m_pWindow, &MainWindow::onReplaceAll);
    }
    return m_pDlgFind;
}

// Gives the dialog, with the selected text in it.
CDlgFind *CSearch::dialogForSelection()
{
    const QString strText = document().selectedText();
    if (!strText.isEmpty() && isOneLine(strText))
        dialog()->setFindText(strText);
    dialog()->clearInfo();
    return dialog();
}

void CSearch::showFind()
{
    dialogForSelection()->showFind();
}

void CSearch::showReplace()
{
    dialogForSelection()->showReplace();
}

void CSearch::findAgain(bool bBackward)
{
    const QString strText = dialog()->getFindText();
    if (strText.isEmpty()) { // There is nothing to search for yet, so the dialog asks.
        showFind();
        return;
    }
    dialog()->clearInfo();
    emit message(QString());
    const CResult result = document().find(strText, bBackward);
    if (!result.text().isEmpty())
        emit message(result.text());
    else if (!result.isDone() && !document().editor()) // An editor reports a miss by itself.
        tellMiss();
}

void CSearch::findNext()
{
    const QString strText = dialog()->getFindText();
    dialog()->clearInfo();
    const CResult result = document().find(strText, false);
    const bool bFound = result.isDone();
    if (!result.text().isEmpty())
        emit message(result.text());
    if (const CHighlightEdit *pEditor = document().editor())
        dialog()->uncover(selectedSpot(*pEditor));
    else if (const CEditWebView *pPage = document().page(); pPage && bFound)
        dialog()->uncover(pPage->selectedSpot());
    else if (!strText.isEmpty())
        tellMiss();
    if (bFound && g_pSettings->m_bFindCloseAfterFindNext)
        dialog()->hide();
}

void CSearch::replace()
{
    const QString strFind = dialog()->getFindText();
    dialog()->clearInfo();
    if (strFind.isEmpty() && !document().editor())
        return;
    const bool bFound = document().replace(strFind, dialog()->getReplaceText()).isDone();
    if (const CHighlightEdit *pEditor = document().editor())
        dialog()->uncover(selectedSpot(*pEditor));
    else if (!bFound)
        tellMiss();
}

void CSearch::replaceAll()
{
    const QString strFind = dialog()->getFindText();
    dialog()->clearInfo();
    // The editor signals the number of replacements.
    if (!strFind.isEmpty() || document().editor())
        static_cast<void>(document().replaceAll(strFind, dialog()->getReplaceText()));
    if (const CHighlightEdit *pEditor = document().editor(); pEditor && pEditor->replaceAllJob())
        showProgress(pEditor->replaceAllJob());
}

void CSearch::showProgress(CReplaceAll *pJob)
{
    CWorkProgress *pProgress = &m_pWindow->workProgress();
    const int nWork = pProgress->begin(
        pJob, tr("Replacing"), [pJob] { pJob->stop(); });
    connect(
        pJob, &CReplaceAll::progressed, pProgress,
        [pProgress, nWork](qint64 nDone, qint64 nAll) { pProgress->advance(nWork, nDone, nAll); });
}

void CSearch::tellTop()
{
    dialog()->onFindToTop();
    tell(CDlgFind::tr("Find: the top has been reached."));
}

void CSearch::tellBottom()
{
    dialog()->onFindToBottom();
    tell(CDlgFind::tr("Find: the end has been reached."));
}

void CSearch::tellMiss()
{
    dialog()->onCannotFound();
    tell(CDlgFind::tr("Find: the string cannot be found."));
}

void CSearch::tellReplaced(int nCount)
{
    dialog()->onReplaceNum(nCount);
}

void CSearch::tellCount(int nIndex, int nCount)
{
    dialog()->onFindCounted(nIndex, nCount);
    tell(CDlgFind::countText(nIndex, nCount));
}

void CSearch::tell(const QString &strText)
{
    // An open dialog shows it in its own line, otherwise the status bar does.
    if (!dialog()->isVisible())
        emit message(strText);
}

void CSearch::showGoToLine()
{
    if (!m_pDlgGo) {
        m_pDlgGo = new CDlgGo(m_pWindow);
        connect(m_pDlgGo, &CDlgGo::goToLine, m_pWindow, &MainWindow::onGoToLine);
    }
    m_pDlgGo->prepare();
    m_pDlgGo->show();
    m_pDlgGo->raise();
    m_pDlgGo->activateWindow();
}
