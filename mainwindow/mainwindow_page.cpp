#include "mainwindow/mainwindow.h"

#include "app/csettings.h"
#include "editor/chighlightedit.h"
#include "mainwindow/chtmltoolbar.h"
#include "mainwindow/ctabwidget.h"
#include "res/icons.h"
#include "ui_mainwindow.h"
#include "web/ceditwebview.h"

#include <QComboBox>
#include <QFontComboBox>
#include <QLineEdit>
#include <QScopedValueRollback>

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
    connect(m_pHtmlTools, &CHtmlToolBar::textColorChosen, this,
            [this](const QColor &clr) { showPageColor(clr, false); });
    connect(m_pHtmlTools, &CHtmlToolBar::backColorChosen, this,
            [this](const QColor &clr) { showPageColor(clr, true); });
}

void MainWindow::updatePageActions(const CDocument &document)
{
    CEditWebView *pPage = document.kind() == CDocument::Kind::Page ? document.page() : nullptr;
    m_pUi->htmlToolBar->setVisible(pPage);
    for (QAction *pAction : {m_pUi->actionBold, m_pUi->actionItalic, m_pUi->actionUnderline,
                             m_pUi->actionLeft_to_Right, m_pUi->actionRight_to_Left})
        pAction->setEnabled(pPage);
    m_pUi->actionBack->setEnabled(pPage && pPage->canGoBack());
    m_pUi->actionForward->setEnabled(pPage && pPage->canGoForward());
    m_pUi->actionSwapHtml->setEnabled(document.page());
    m_pUi->actionBold->setChecked(pPage && pPage->isBold());
    m_pUi->actionItalic->setChecked(pPage && pPage->isItalic());
    m_pUi->actionUnderline->setChecked(pPage && pPage->isUnderline());
    if (pPage) {
        m_pUi->actionSwapHtml->setIcon(drawnIcon(QStringLiteral("switch_back")));
        m_pUi->actionSwapHtml->setToolTip(tr("Switch to html source edit"));
        m_pHtmlTools->showFont(pPage->fontName(), pPage->fontSize());
        m_pHtmlTools->showColors(pPage->foreColor(), pPage->backColor());
    } else if (document.page()) {
        m_pUi->actionSwapHtml->setIcon(drawnIcon(QStringLiteral("switch_fore")));
        m_pUi->actionSwapHtml->setToolTip(tr("Switch to html page edit"));
    }
}

void MainWindow::pageCommand(int nWebAction)
{
    const CDocument document = currentDocument();
    if (document.kind() == CDocument::Kind::Page)
        document.page()->triggerEdit(static_cast<QWebPage::WebAction>(nWebAction));
    updateActions();
}

void MainWindow::on_actionBold_triggered()
{
    pageCommand(QWebPage::ToggleBold);
}

void MainWindow::on_actionItalic_triggered()
{
    pageCommand(QWebPage::ToggleItalic);
}

void MainWindow::on_actionUnderline_triggered()
{
    pageCommand(QWebPage::ToggleUnderline);
}

void MainWindow::on_actionLeft_to_Right_triggered()
{
    pageCommand(QWebPage::SetTextDirectionLeftToRight);
}

void MainWindow::on_actionRight_to_Left_triggered()
{
    pageCommand(QWebPage::SetTextDirectionRightToLeft);
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
    const CDocument document = currentDocument();
    if (document.kind() != CDocument::Kind::Page)
        return;
    document.page()->setFontName(m_pHtmlTools->fontBox()->currentFont().family());
    document.page()->setFocus();
}

void MainWindow::onCurrentFontSizeChanged()
{
    const CDocument document = currentDocument();
    if (document.kind() != CDocument::Kind::Page)
        return;
    document.page()->setFontSize(m_pHtmlTools->sizeBox()->currentText());
    document.page()->setFocus();
}

void MainWindow::showPageColor(const QColor &clr, bool bBackground)
{
    const CDocument document = currentDocument();
    if (document.kind() != CDocument::Kind::Page)
        return;
    if (bBackground) {
        document.page()->setBackColor(clr.alpha() == 0 ? QStringLiteral("transparent")
                                                       : clr.name());
        g_pSettings->setBackColor(clr);
    } else {
        document.page()->setForeColor(clr.name());
        g_pSettings->setTextColor(clr);
    }
    g_pSettings->save();
    m_pHtmlTools->setChosenColors(g_pSettings->getTextColor(), g_pSettings->getBackColor());
    document.page()->setFocus();
    updateActions();
}

void MainWindow::on_actionSwapHtml_triggered()
{
    const CDocument document = currentDocument();
    CEditWebView *pPage = document.page();
    if (!pPage)
        return;
    const bool bToSource = document.kind() == CDocument::Kind::Page;
    {
        const QScopedValueRollback<bool> loading(m_bLoading, true);
        if (bToSource) {
            pPage->showSource(true);
            swapTabWidget(m_pTabs->currentIndex(), pPage->sourceEdit());
        } else {
            pPage->showSource(false);
            pPage->applySource(pPage->sourceEdit()->getText());
            swapTabWidget(m_pTabs->currentIndex(), pPage);
        }
    }
    g_pSettings->setIsHtmlText(bToSource);
    g_pSettings->save();
    currentDocument().widget()->setFocus();
    if (!m_bLoading)
        refreshWindow();
}

void MainWindow::swapTabWidget(int nIndex, QWidget *pNew)
{
    // The old one loses its focus first: a page that is hidden with it takes a tab key.
    m_pTabs->widget(nIndex)->clearFocus();
    const QString strText = m_pTabs->tabText(nIndex);
    const QString strToolTip = m_pTabs->tabToolTip(nIndex);
    const QIcon icon = m_pTabs->tabIcon(nIndex);
    m_pTabs->removeTab(nIndex);
    m_pTabs->insertTab(nIndex, pNew, icon, strText);
    m_pTabs->setTabToolTip(nIndex, strToolTip);
    m_pTabs->setCurrentIndex(nIndex);
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
    if (m_pStatus->message() == strUrl) // Another message may have come.
        showStatusMessage(QString());
}
