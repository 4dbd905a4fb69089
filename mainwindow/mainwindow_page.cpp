// The commands of menus, keys and the HTML tool bar for a page.
#include "mainwindow/mainwindow.h"

#include "app/csettings.h"
#include "document/cdocument.h"
#include "document/cpagedocument.h"
#include "mainwindow/chtmltoolbar.h"
#include "mainwindow/cstatuslabels.h"
#include "mainwindow/ctabwidget.h"
#include "pageedit/cpageobjects.h"
#include "pageedit/cpagetoolbar.h"
#include "ui_mainwindow.h"
#include "web/ceditwebview.h"

#include <QComboBox>
#include <QFontComboBox>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QWebPage>

void MainWindow::setupHtmlToolBar()
{
    m_pHtmlTools = new CHtmlToolBar(m_pUi->htmlToolBar);
    m_pHtmlTools->setChosenColors(g_pSettings->getTextColor(), g_pSettings->getBackColor());
    m_pHtmlTools->showColors(g_pSettings->getTextColor(), g_pSettings->getBackColor());
    connect(m_pHtmlTools->fontBox(), &QFontComboBox::currentFontChanged, this,
            &MainWindow::onCurrentFontNameChanged);
    connect(m_pHtmlTools->sizeBox(), QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &MainWindow::onCurrentFontSizeChanged);
    connect(m_pHtmlTools->sizeBox()->lineEdit(), &QLineEdit::returnPressed, this,
            &MainWindow::onCurrentFontSizeChanged);
    connect(
        m_pHtmlTools, &CHtmlToolBar::textColorChosen, this,
        [this](const QColor &clr) { m_pHtmlTools->applyColor(shownPage(), clr, false); });
    connect(m_pHtmlTools, &CHtmlToolBar::backColorChosen, this,
            [this](const QColor &clr) { m_pHtmlTools->applyColor(shownPage(), clr, true); });
}

void MainWindow::setupPageToolBar()
{
    m_pUi->pageToolBar->setIconSize(QSize(24, 24));
    m_pPageTools = new CPageToolBar(m_pUi->pageToolBar);
    addActions(m_pPageTools->actions());
    m_pPageObjects = new CPageObjects(m_pUi->pageToolBar);
}

// Gives the page editor if the current tab shows a page and not its source; else null.
CEditWebView *MainWindow::shownPage() const
{
    const CDocument &document = currentDocument();
    return document.editor() ? nullptr : document.page();
}

void MainWindow::on_actionBold_triggered()
{
    finish(currentDocument().format(QWebPage::ToggleBold));
}

void MainWindow::on_actionItalic_triggered()
{
    finish(currentDocument().format(QWebPage::ToggleItalic));
}

void MainWindow::on_actionUnderline_triggered()
{
    finish(currentDocument().format(QWebPage::ToggleUnderline));
}

void MainWindow::on_actionLeft_to_Right_triggered()
{
    finish(currentDocument().format(QWebPage::SetTextDirectionLeftToRight));
}

void MainWindow::on_actionRight_to_Left_triggered()
{
    finish(currentDocument().format(QWebPage::SetTextDirectionRightToLeft));
}

void MainWindow::on_actionBack_triggered()
{
    if (CEditWebView *pPage = currentDocument().page())
        pPage->back();
}

void MainWindow::on_actionForward_triggered()
{
    if (CEditWebView *pPage = currentDocument().page())
        pPage->forward();
}

void MainWindow::onCurrentFontNameChanged()
{
    if (CEditWebView *pPage = shownPage()) {
        pPage->setFontName(m_pHtmlTools->fontBox()->currentFont().family());
        pPage->setFocus();
    }
}

void MainWindow::onCurrentFontSizeChanged()
{
    if (CEditWebView *pPage = shownPage()) {
        pPage->setFontSize(m_pHtmlTools->sizeBox()->currentText());
        pPage->setFocus();
    }
}

void MainWindow::on_actionSwapHtml_triggered()
{
    auto *pDocument = qobject_cast<CPageDocument *>(&currentDocument());
    if (!pDocument)
        return;
    const bool bToSource = !pDocument->editor();
    {
        const QScopedValueRollback<bool> loading(m_bLoading, true);
        pDocument->showSource(bToSource);
    }
    g_pSettings->setIsHtmlText(bToSource);
    g_pSettings->save();
    pDocument->widget()->setFocus();
    refreshWindow();
}

void MainWindow::onLoadFinished(bool)
{
    auto *pPage = qobject_cast<CEditWebView *>(sender());
    const int nIndex = m_pTabs->indexOf(pPage);
    if (nIndex >= 0 && !pPage->filePath().isEmpty()) {
        m_pTabs->setPlainTabText(nIndex, pPage->getTitle());
        if (!pPage->icon().isNull())
            m_pTabs->setTabIcon(nIndex, pPage->icon());
    }
    refreshWindow();
}

void MainWindow::onOverUrl(const QString &strUrl)
{
    showStatusMessage(strUrl);
}

void MainWindow::onLinkLeft(const QString &strUrl)
{
    if (m_pStatus->message() == strUrl) // Another message may have been shown since.
        showStatusMessage(QString());
}
