#include "mainwindow/ctablistbutton.h"

#include "app/plaintext.h"

#include <QPointer>
#include <QTabWidget>
#include <QTimer>

namespace {

const int g_nLastNumberKey = 9;

// Gives the name and, if the tab has one, its key.
QString entryText(int nIndex, const QString &strName)
{
    const int nNumber = nIndex + 1;
    const QString strKey = nNumber <= g_nLastNumberKey ? QLatin1Char('\t')
            + QKeySequence(QStringLiteral("Alt+%1").arg(nNumber)).toString(QKeySequence::NativeText)
                                                       : QString();
    return withoutMnemonic(strName) + strKey;
}

} // namespace

CTabListButton::CTabListButton(QTabWidget *pTabs, std::function<QVector<STabName>()> fnNames)
    : QToolButton(pTabs), m_pTabs(pTabs), m_fnNames(std::move(fnNames))
{
    setObjectName(QStringLiteral("tabList"));
    setArrowType(Qt::DownArrow);
    setAutoRaise(true);
    // One arrow is enough.
    setStyleSheet(QStringLiteral("CTabListButton::menu-indicator{image:none;}"));
    setFocusPolicy(Qt::TabFocus);
    setToolTip(tr("List of all tabs (%1)")
                   .arg(QKeySequence(QStringLiteral("Alt+0")).toString(QKeySequence::NativeText)));
    setAccessibleName(tr("List of all tabs"));
    setMenu(&m_menu);
    setPopupMode(QToolButton::InstantPopup);
    m_menu.setToolTipsVisible(true);
    // One column, because a small screen would show only the first of several.
    m_menu.setStyleSheet(QStringLiteral("QMenu{menu-scrollable:1;}"));
    connect(&m_menu, &QMenu::aboutToShow, this, &CTabListButton::fillMenu);
}

void CTabListButton::fillMenu()
{
    const int nWidest = 60; // Characters of average width.
    const QVector<STabName> lstNames = m_fnNames();
    const QStringList lstFolders = foldersToTellApart(lstNames);
    m_menu.clear();
    for (int n = 0; n < lstNames.size(); ++n) {
        QString strName = lstNames.at(n).strTitle;
        if (!lstFolders.at(n).isEmpty())
            strName += QStringLiteral(" – ") + lstFolders.at(n);
        strName = m_menu.fontMetrics().elidedText(
            onOneLine(strName), Qt::ElideMiddle, nWidest * m_menu.fontMetrics().averageCharWidth());
        QAction *pAction = m_menu.addAction(m_pTabs->tabIcon(n), entryText(n, strName));
        pAction->setToolTip(plainToolTip(visibleName(lstNames.at(n).strPath)));
        // The tab may be gone, because tabs come and go while the menu is open.
        const QPointer<QWidget> pWidget(m_pTabs->widget(n));
        connect(pAction, &QAction::triggered, this, [this, pWidget] { goTo(pWidget); });
        if (n == m_pTabs->currentIndex())
            m_menu.setDefaultAction(pAction);
    }
    // Queued: a menu that is longer than the screen scrolls to an entry only once it is shown.
    QTimer::singleShot(0, &m_menu, [this] { m_menu.setActiveAction(m_menu.defaultAction()); });
}

void CTabListButton::goTo(QWidget *pWidget)
{
    if (!pWidget)
        return;
    m_pTabs->setCurrentWidget(pWidget);
    pWidget->setFocus(Qt::OtherFocusReason);
}
