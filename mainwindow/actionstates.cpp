#include "mainwindow/actionstates.h"

#include "document/cdocument.h"
#include "editor/chighlightedit.h"
#include "mainwindow/mainwindow.h"
#include "res/icons.h"
#include "ui_mainwindow.h"
#include "web/ceditwebview.h"

#include <QAction>
#include <QTextDocument>
#include <QWebPage>

namespace {

void enable(const QList<QAction *> &lstActions, bool bEnabled)
{
    for (QAction *pAction : lstActions)
        pAction->setEnabled(bEnabled);
}

// For a document that shows a code editor.
void showEditorStates(Ui::MainWindow *pUi, const CHighlightEdit *pEditor)
{
    const bool bSelection = pEditor->textCursor().hasSelection();
    pUi->actionUndo->setEnabled(pEditor->document()->isUndoAvailable());
    pUi->actionRedo->setEnabled(pEditor->document()->isRedoAvailable());
    pUi->actionCopy->setEnabled(bSelection);
    pUi->actionCut->setEnabled(bSelection && !pEditor->isReadOnly());
    pUi->actionSelect_All->setEnabled(true);
    pUi->actionToggle_Comment->setEnabled(pEditor->canToggleComment());
    pUi->actionVerify_Valid->setEnabled(pEditor->canVerifyValid());
    pUi->actionFormatting->setEnabled(pEditor->canFormatting());
}

// For a page; pPage is null for a document that is neither page nor text.
void showPageStates(Ui::MainWindow *pUi, const CEditWebView *pPage)
{
    const auto follow = [pPage](QAction *pAction, QWebPage::WebAction webAction) {
        pAction->setEnabled(pPage && pPage->pageAction(webAction)->isEnabled());
    };
    follow(pUi->actionUndo, QWebPage::Undo);
    follow(pUi->actionRedo, QWebPage::Redo);
    follow(pUi->actionCut, QWebPage::Cut);
    follow(pUi->actionCopy, QWebPage::Copy);
    follow(pUi->actionSelect_All, QWebPage::SelectAll);
    enable({pUi->actionToggle_Comment, pUi->actionVerify_Valid, pUi->actionFormatting}, false);
}

void showHtmlStates(Ui::MainWindow *pUi, const CEditWebView *pPage)
{
    pUi->htmlToolBar->setVisible(pPage);
    pUi->pageToolBar->setVisible(pPage);
    enable({pUi->actionBold, pUi->actionItalic, pUi->actionUnderline, pUi->actionLeft_to_Right,
            pUi->actionRight_to_Left},
           pPage);
    pUi->actionBack->setEnabled(pPage && pPage->canGoBack());
    pUi->actionForward->setEnabled(pPage && pPage->canGoForward());
    pUi->actionBold->setChecked(pPage && pPage->isBold());
    pUi->actionItalic->setChecked(pPage && pPage->isItalic());
    pUi->actionUnderline->setChecked(pPage && pPage->isUnderline());
}

void showSwap(Ui::MainWindow *pUi, const CDocument &document)
{
    pUi->actionSwapHtml->setEnabled(document.page());
    if (!document.page())
        return;
    const bool bSource = document.editor();
    pUi->actionSwapHtml->setIcon(
        drawnIcon(bSource ? QStringLiteral("switch_fore") : QStringLiteral("switch_back")));
    pUi->actionSwapHtml->setToolTip(bSource ? MainWindow::tr("Switch to html page edit")
                                            : MainWindow::tr("Switch to html source edit"));
}

} // namespace

void showActionStates(Ui::MainWindow *pUi, const CDocument &document)
{
    const CHighlightEdit *pEditor = document.editor();
    const bool bText = pEditor || document.page();
    pUi->actionSave->setEnabled(document.canSave());
    const bool bArrived = !document.isArriving();
    const bool bEditable = bText && !document.isReadOnly();
    pUi->actionSave_As->setEnabled(bEditable);
    pUi->actionSave_All->setEnabled(false);
    pUi->actionRefresh->setEnabled(!document.path().isEmpty() && bArrived);
    enable({pUi->actionFind, pUi->actionFind_Next, pUi->actionFind_Previous}, bText && bArrived);
    enable({pUi->actionReplace, pUi->actionColor_Dialog}, bEditable);
    pUi->actionGo_to_Line->setEnabled(pEditor);
    pUi->menuLanguage->setEnabled(pEditor && bArrived);
    pUi->menuText_Codec->setEnabled(pEditor && !document.isReadOnly());
    if (pEditor)
        showEditorStates(pUi, pEditor);
    else
        showPageStates(pUi, document.page());
    showHtmlStates(pUi, pEditor ? nullptr : document.page());
    showSwap(pUi, document);
}
