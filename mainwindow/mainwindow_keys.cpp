// Keys that belong to no menu entry.
#include "mainwindow/mainwindow.h"

#include "browser/cwidgetfavorfilelist.h"
#include "mainwindow/cfinddock.h"
#include "mainwindow/cmenuletters.h"
#include "mainwindow/cnoticebar.h"
#include "mainwindow/cpasttabs.h"
#include "mainwindow/csidepanels.h"
#include "mainwindow/ctabwidget.h"
#include "mainwindow/panes.h"
#include "ui_mainwindow.h"
#include "web/cpreviewwidget.h"

#include <QMenuBar>
#include <QShortcut>
#include <QTabBar>
#include <QToolButton>

void MainWindow::addKey(const char *szKey, const std::function<void()> &fnActivated)
{
    auto *pShortcut = new QShortcut(QKeySequence(QLatin1String(szKey)), this);
    connect(pShortcut, &QShortcut::activated, this, fnActivated);
}

void MainWindow::setupShortcuts()
{
    // Single keys instead of Qt's standard lists, which hold keys of other actions.
    m_pUi->actionRedo->setShortcuts(
        {QKeySequence(QStringLiteral("Ctrl+Shift+Z")), QKeySequence(QStringLiteral("Ctrl+Y"))});
    // These actions are in no menu or tool bar, so the window itself must own them for their keys.
    addActions({m_pUi->actionBack, m_pUi->actionForward, m_pUi->actionLeft_to_Right,
                m_pUi->actionRight_to_Left});

    addKey(
        "Ctrl+Q", [this] { close(); });
    const auto stepPane = [this](int nBy) {
        QList<QWidget *> lstPanes = {m_pPanels->browser(), m_pPanels->preview(), m_pNotice,
                                     m_pUi->htmlToolBar, m_pUi->pageToolBar};
        if (QWidget *pFindPanel = m_pFindDock->panel())
            lstPanes.append(pFindPanel);
        if (m_pTabs->count() > 0) {
            lstPanes.prepend(m_pTabs->tabBar());
            lstPanes.prepend(m_pTabs->currentWidget());
        } else {
            lstPanes.prepend(m_pTabs->emptyPanel());
        }
        if (QWidget *pPane = nextPane(lstPanes, focusWidget(), nBy))
            focusPane(pPane);
    };
    addKey(
        "F6", [stepPane] { stepPane(1); });
    addKey(
        "Shift+F6", [stepPane] { stepPane(-1); });
    addKey("Ctrl+Shift+F", [this] { m_pFindDock->show(currentDocument().selectedText()); });
    new CMenuLetters(this);
    addKey("F10", [this] { menuBar()->setActiveAction(menuBar()->actions().constFirst()); });
}

void MainWindow::setupTabKeys()
{
    addKey(
        "Ctrl+W", [this] { onTabCloseRequested(m_pTabs->currentIndex()); });
    addKey("Ctrl+Shift+T", [this] { m_pPastTabs->reopenClosed(); });
    const auto step = [this](int nBy) {
        const int nCount = m_pTabs->count();
        if (nCount > 0)
            m_pTabs->setCurrentIndex((m_pTabs->currentIndex() + nBy + nCount) % nCount);
    };
    for (const char *szKey : {"Ctrl+Tab", "Ctrl+PgDown"})
        addKey(szKey, [step] { step(1); });
    for (const char *szKey : {"Ctrl+Shift+Tab", "Ctrl+PgUp"})
        addKey(szKey, [step] { step(-1); });
    for (int n = 1; n <= 9; ++n) {
        addKey(
            qPrintable(QStringLiteral("Alt+%1").arg(n)),
            [this, n] {
                if (n > m_pTabs->count())
                    showStatusMessage(tr("There is no tab %1.").arg(n));
                m_pTabs->setCurrentIndex(n - 1);
            });
    }
    addKey("Alt+0", [this] {
        if (m_pTabs->count() > 0)
            static_cast<QToolButton *>(m_pTabs->cornerWidget())->showMenu();
    });
}
