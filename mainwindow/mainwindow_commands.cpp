// Passes the commands of menus and keys to the current document.
#include "mainwindow/mainwindow.h"

#include "app/csettings.h"
#include "document/cdocument.h"
#include "editor/chighlightedit.h"
#include "highlight/chighlightmgt.h"
#include "highlight/ctextdocument.h"
#include "mainwindow/cformatmenus.h"
#include "mainwindow/chtmltoolbar.h"
#include "mainwindow/csearch.h"
#include "ui_mainwindow.h"
#include "widgets/messagebox.h"

#include <QColorDialog>
#include <QCoreApplication>
#include <QMessageBox>
#include <QPointer>

// A command that had nothing to do has no text: its action was disabled.
void MainWindow::finish(const CResult &)
{
    refreshWindow();
}

void MainWindow::on_actionExit_triggered()
{
    // Exit asks nothing, because drafts keep what is unsaved. Without drafts the window asks.
    m_pDocuments->drafts().flush();
    if (m_pDocuments->drafts().isWorking() || close())
        QCoreApplication::exit(0);
}

void MainWindow::on_actionUndo_triggered()
{
    finish(currentDocument().undo());
}

void MainWindow::on_actionRedo_triggered()
{
    finish(currentDocument().redo());
}

void MainWindow::on_actionCut_triggered()
{
    finish(currentDocument().cut());
}

void MainWindow::on_actionCopy_triggered()
{
    finish(currentDocument().copy());
}

void MainWindow::on_actionPaste_triggered()
{
    finish(currentDocument().paste());
}

void MainWindow::on_actionSelect_All_triggered()
{
    finish(currentDocument().selectAll());
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
    for (CDocument *pDocument : m_pDocuments->all())
        pDocument->setLineWrap(bWrap);
}

void MainWindow::on_actionColor_Dialog_triggered()
{
    const QPointer<CDocument> pDocument(&currentDocument());
    const QString strSelected = pDocument->selectedText();
    QColor clrInitial = g_pSettings->getTextColor();
    // The dialog starts with the colour that is selected in the text.
    if (pDocument->editor() && QColor::isValidColor(strSelected))
        clrInitial.setNamedColor(strSelected);
    const QColor clr = QColorDialog::getColor(clrInitial, this, tr("Color Dialog"));
    if (!clr.isValid() || !pDocument)
        return;
    if (CHighlightEdit *pEditor = pDocument->editor())
        pEditor->textCursor().insertText(clr.name());
    else
        m_pHtmlTools->applyColor(pDocument->page(), clr, false);
    refreshWindow();
}

void MainWindow::onLangClick()
{
    const auto *pAction = qobject_cast<QAction *>(sender());
    CHighlightEdit *pEditor = currentDocument().editor();
    if (!pAction || !pEditor)
        return;
    pEditor->textDocument()->clearAdditionalFormats();
    pEditor->setDefinition(pAction == m_pUi->actionUnknown
                               ? QVariantMap()
                               : m_pHighlightMgt->definitionForName(pAction->data().toString()));
    updateActions();
    m_pFormats->show(currentDocument());
}

void MainWindow::onClickAtionTextCodec()
{
    if (const auto *pAction = qobject_cast<QAction *>(sender()))
        finish(currentDocument().setCodec(pAction->text()));
}

void MainWindow::on_actionWindows_triggered()
{
    finish(currentDocument().setReturnFormat(0));
}

void MainWindow::on_actionUnix_triggered()
{
    finish(currentDocument().setReturnFormat(1));
}

void MainWindow::on_actionOSX_triggered()
{
    finish(currentDocument().setReturnFormat(2));
}

void MainWindow::on_actionFind_triggered()
{
    m_pSearch->showFind();
}

void MainWindow::on_actionReplace_triggered()
{
    m_pSearch->showReplace();
}

void MainWindow::on_actionFind_Next_triggered()
{
    m_pSearch->findAgain(false);
}

void MainWindow::on_actionFind_Previous_triggered()
{
    m_pSearch->findAgain(true);
}

void MainWindow::onFindNext()
{
    m_pSearch->findNext();
}

void MainWindow::onReplace()
{
    m_pSearch->replace();
}

void MainWindow::onReplaceAll()
{
    m_pSearch->replaceAll();
}

void MainWindow::onFindToTop()
{
    m_pSearch->tellTop();
}

void MainWindow::onFindToBottom()
{
    m_pSearch->tellBottom();
}

void MainWindow::onCannotFound()
{
    m_pSearch->tellMiss();
}

void MainWindow::onReplaceNum(int nVal)
{
    m_pSearch->tellReplaced(nVal);
}

void MainWindow::on_actionGo_to_Line_triggered()
{
    m_pSearch->showGoToLine();
}

void MainWindow::onGoToLine(int nLine)
{
    if (CHighlightEdit *pEditor = currentDocument().editor()) {
        pEditor->whenArrived(0, nLine, [pEditor, nLine] { pEditor->goToLine(nLine); });
        pEditor->setFocus();
    }
}
