#include "mainwindow/mainwindow.h"

#include "app/csettings.h"
#include "editor/cdlgfind.h"
#include "editor/cdlggo.h"
#include "editor/chighlightedit.h"
#include "web/ceditwebview.h"

#include <QApplication>

namespace {

// The wait cursor on a widget for as long as the object lives.
class CWaitCursor
{
public:
    explicit CWaitCursor(QWidget *pWidget) : m_pWidget(pWidget)
    {
        m_pWidget->setCursor(Qt::WaitCursor);
    }
    ~CWaitCursor() { m_pWidget->unsetCursor(); }
    Q_DISABLE_COPY(CWaitCursor)

private:
    QWidget *m_pWidget;
};

// One line's worth of selected text; a larger selection is a place to search, not a text to find.
QString selectedLine(const CDocument &document)
{
    const QString strText = document.editor() ? document.editor()->textCursor().selectedText()
        : document.page()                     ? document.page()->selectedText()
                                              : QString();
    const bool bOneLine =
        !strText.contains(QChar::ParagraphSeparator) && !strText.contains(QLatin1Char('\n'));
    return bOneLine ? strText : QString();
}

// In the screen's coordinates.
QRect selectedSpot(const CHighlightEdit &edit)
{
    QTextCursor start = edit.textCursor();
    start.setPosition(start.selectionStart());
    const QRect spot = edit.cursorRect(start).united(edit.cursorRect(edit.textCursor()));
    return {edit.viewport()->mapToGlobal(spot.topLeft()), spot.size()};
}

} // namespace

CDlgFind *MainWindow::findDialog()
{
    if (!m_pDlgFind) {
        m_pDlgFind = new CDlgFind(this);
        connect(m_pDlgFind, &CDlgFind::emitFindNext, this, &MainWindow::onFindNext);
        connect(m_pDlgFind, &CDlgFind::emitReplace, this, &MainWindow::onReplace);
        connect(m_pDlgFind, &CDlgFind::emitReplaceAll, this, &MainWindow::onReplaceAll);
    }
    return m_pDlgFind;
}

// The dialog, offering what is selected.
CDlgFind *MainWindow::findDialogForSelection()
{
    const QString strText = selectedLine(currentDocument());
    if (!strText.isEmpty())
        findDialog()->setFindText(strText);
    findDialog()->clearInfo();
    return findDialog();
}

void MainWindow::on_actionFind_triggered()
{
    findDialogForSelection()->showFind();
}

void MainWindow::on_actionReplace_triggered()
{
    findDialogForSelection()->showReplace();
}

void MainWindow::on_actionFind_Next_triggered()
{
    searchAgain(false);
}

void MainWindow::on_actionFind_Previous_triggered()
{
    searchAgain(true);
}

void MainWindow::searchAgain(bool bBackward)
{
    const QString strText = findDialog()->getFindText();
    if (strText.isEmpty()) { // Nothing to search for yet: ask.
        on_actionFind_triggered();
        return;
    }
    findDialog()->clearInfo();
    showStatusMessage(QString());
    const CDocument document = currentDocument();
    if (CHighlightEdit *pEditor = document.editor()) {
        const CWaitCursor wait(pEditor);
        if (bBackward)
            pEditor->findPrevious(strText);
        else
            pEditor->find(strText, false, nullptr);
    } else if (CEditWebView *pPage = document.page()) {
        const bool bFound = bBackward ? pPage->findPageTextReverse(strText, false)
                                      : pPage->findPageText(strText, false);
        if (!bFound)
            onCannotFound();
    }
}

void MainWindow::onFindNext()
{
    const QString strText = findDialog()->getFindText();
    findDialog()->clearInfo();
    const CDocument document = currentDocument();
    bool bFound = false;
    if (CHighlightEdit *pEditor = document.editor()) {
        const CWaitCursor wait(pEditor);
        bFound = pEditor->find(strText, false, nullptr);
        findDialog()->uncover(selectedSpot(*pEditor));
    } else if (CEditWebView *pPage = document.page()) {
        bFound = pPage->findPageText(strText, false);
        if (!bFound && !strText.isEmpty())
            onCannotFound();
    }
    if (bFound && g_pSettings->m_bFindCloseAfterFindNext)
        findDialog()->hide();
}

void MainWindow::onReplace()
{
    const QString strFind = findDialog()->getFindText();
    const QString strReplace = findDialog()->getReplaceText();
    findDialog()->clearInfo();
    const CDocument document = currentDocument();
    if (CHighlightEdit *pEditor = document.editor()) {
        const CWaitCursor wait(pEditor);
        pEditor->replace(strFind, strReplace, nullptr);
        findDialog()->uncover(selectedSpot(*pEditor));
    } else if (CEditWebView *pPage = document.page()) {
        if (!strFind.isEmpty() && !pPage->replacePageText(strFind, strReplace))
            onCannotFound();
    }
}

void MainWindow::onReplaceAll()
{
    const QString strFind = findDialog()->getFindText();
    const QString strReplace = findDialog()->getReplaceText();
    findDialog()->clearInfo();
    const CDocument document = currentDocument();
    if (CHighlightEdit *pEditor = document.editor()) {
        const CWaitCursor wait(pEditor);
        pEditor->replaceAll(strFind, strReplace);
    } else if (CEditWebView *pPage = document.page()) {
        if (!strFind.isEmpty())
            pPage->replaceAllPageText(strFind, strReplace);
    }
}

void MainWindow::onFindToTop()
{
    findDialog()->onFindToTop();
    showSearchMessage(CDlgFind::tr("Find: the top has been reached."));
}

void MainWindow::onFindToBottom()
{
    findDialog()->onFindToBottom();
    showSearchMessage(CDlgFind::tr("Find: the end has been reached."));
}

void MainWindow::onCannotFound()
{
    findDialog()->onCannotFound();
    showSearchMessage(CDlgFind::tr("Find: the string cannot be found."));
}

void MainWindow::onReplaceNum(int nVal)
{
    findDialog()->onReplaceNum(nVal);
}

void MainWindow::showSearchMessage(const QString &strText)
{
    // With the dialog open its own line tells; searched by key, nobody would see it there.
    if (!findDialog()->isVisible())
        showStatusMessage(strText);
}

void MainWindow::on_actionGo_to_Line_triggered()
{
    if (!m_pDlgGo) {
        m_pDlgGo = new CDlgGo(this);
        connect(m_pDlgGo, &CDlgGo::goToLine, this, &MainWindow::onGoToLine);
    }
    m_pDlgGo->prepare();
    m_pDlgGo->show();
    m_pDlgGo->raise();
    m_pDlgGo->activateWindow();
}

void MainWindow::onGoToLine(int nLine)
{
    if (CHighlightEdit *pEditor = currentDocument().editor()) {
        pEditor->goToLine(nLine);
        pEditor->setFocus();
    }
}
