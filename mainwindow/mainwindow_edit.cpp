#include "mainwindow/mainwindow.h"

#include "app/csettings.h"
#include "app/plaintext.h"
#include "editor/chighlightedit.h"
#include "mainwindow/ctabwidget.h"
#include "ui_mainwindow.h"
#include "web/ceditwebview.h"

#include <QColorDialog>
#include <QTextDocument>

void MainWindow::updateEditActions(const CDocument &document)
{
    if (const CHighlightEdit *pEditor = document.editor()) {
        const bool bSelection = pEditor->textCursor().hasSelection();
        m_pUi->actionUndo->setEnabled(pEditor->document()->isUndoAvailable());
        m_pUi->actionRedo->setEnabled(pEditor->document()->isRedoAvailable());
        m_pUi->actionCut->setEnabled(bSelection);
        m_pUi->actionCopy->setEnabled(bSelection);
        m_pUi->actionSelect_All->setEnabled(true);
        return;
    }
    const CEditWebView *pPage = document.page();
    const auto follow = [pPage](QAction *pAction, QWebPage::WebAction webAction) {
        pAction->setEnabled(pPage && pPage->pageAction(webAction)->isEnabled());
    };
    follow(m_pUi->actionUndo, QWebPage::Undo);
    follow(m_pUi->actionRedo, QWebPage::Redo);
    follow(m_pUi->actionCut, QWebPage::Cut);
    follow(m_pUi->actionCopy, QWebPage::Copy);
    follow(m_pUi->actionSelect_All, QWebPage::SelectAll);
}

void MainWindow::on_actionUndo_triggered()
{
    if (CHighlightEdit *pEditor = currentDocument().editor())
        pEditor->undo();
    else
        pageCommand(QWebPage::Undo);
    refreshWindow();
}

void MainWindow::on_actionRedo_triggered()
{
    if (CHighlightEdit *pEditor = currentDocument().editor())
        pEditor->redo();
    else
        pageCommand(QWebPage::Redo);
    refreshWindow();
}

void MainWindow::on_actionCut_triggered()
{
    if (CHighlightEdit *pEditor = currentDocument().editor())
        pEditor->cut();
    else
        pageCommand(QWebPage::Cut);
}

void MainWindow::on_actionCopy_triggered()
{
    if (CHighlightEdit *pEditor = currentDocument().editor())
        pEditor->copy();
    else
        pageCommand(QWebPage::Copy);
}

void MainWindow::on_actionPaste_triggered()
{
    if (CHighlightEdit *pEditor = currentDocument().editor())
        pEditor->paste();
    else
        pageCommand(QWebPage::Paste);
}

void MainWindow::on_actionSelect_All_triggered()
{
    if (CHighlightEdit *pEditor = currentDocument().editor())
        pEditor->selectAll();
    else
        pageCommand(QWebPage::SelectAll);
}

void MainWindow::on_actionToggle_Comment_triggered()
{
    if (CHighlightEdit *pEditor = currentDocument().editor())
        pEditor->toggleComment();
}

void MainWindow::on_actionVerify_Valid_triggered()
{
    CHighlightEdit *pEditor = currentDocument().editor();
    if (pEditor && pEditor->verifyValid()) {
        showMessage(this, QMessageBox::Information, QStringLiteral("OK"),
                    tr("The format of the content is good."));
    }
}

void MainWindow::on_actionFormatting_triggered()
{
    if (CHighlightEdit *pEditor = currentDocument().editor())
        pEditor->formatting();
    refreshWindow();
}

void MainWindow::on_actionLine_Wrap_triggered()
{
    const bool bWrap = m_pUi->actionLine_Wrap->isChecked();
    g_pSettings->setLineWrap(bWrap);
    g_pSettings->save();
    for (int n = 0; n < m_pTabs->count(); ++n) {
        const CDocument document(m_pTabs->widget(n));
        if (CHighlightEdit *pEditor = document.editor())
            pEditor->setLineWrap(bWrap);
        else if (CEditWebView *pPage = document.page())
            pPage->sourceEdit()->setLineWrap(bWrap);
    }
}

void MainWindow::on_actionColor_Dialog_triggered()
{
    const CDocument document = currentDocument();
    CHighlightEdit *pEditor = document.editor();
    QColor clrInitial = g_pSettings->getTextColor();
    // A colour that is selected in the text is the one to change.
    if (pEditor && QColor::isValidColor(pEditor->textCursor().selectedText()))
        clrInitial.setNamedColor(pEditor->textCursor().selectedText());
    const QColor clr = QColorDialog::getColor(clrInitial, this, tr("Color Dialog"));
    if (!clr.isValid())
        return;
    if (pEditor)
        pEditor->textCursor().insertText(clr.name());
    else if (document.page())
        showPageColor(clr, false);
}
