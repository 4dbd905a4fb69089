#include "mainwindow/ctabwidget.h"

#include "app/plaintext.h"
#include "mainwindow/ctabbar.h"
#include "mainwindow/panes.h"

#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>

CTabWidget::CTabWidget(QWidget *pParent) : QTabWidget(pParent)
{
    auto *pBar = new CTabBar(this);
    pBar->setObjectName(tabBar()->objectName());
    setTabBar(pBar);
}

void CTabWidget::addMenuActions(const QStringList &lstTexts)
{
    for (const QString &strText : lstTexts)
        connect(m_menu.addAction(strText), &QAction::triggered, this, &CTabWidget::onClickAction);
}

void CTabWidget::setPlainTabText(int nIndex, const QString &strText)
{
    setTabText(nIndex, withoutMnemonic(strText));
}

void CTabWidget::setPlainTabToolTip(int nIndex, const QString &strText)
{
    setTabToolTip(nIndex, plainToolTip(strText));
}

void CTabWidget::replaceWidget(QWidget *pOld, QWidget *pNew)
{
    const QScopedValueRollback<bool> replacing(m_bReplacing, true); // It is not empty meanwhile.
    const int nIndex = indexOf(pOld);
    QWidget *pCurrent = currentWidget() == pOld ? pNew : currentWidget();
    // The old one loses its focus first: a page that is hidden with it takes a tab key.
    pOld->clearFocus();
    const QString strText = tabText(nIndex);
    const QString strToolTip = tabToolTip(nIndex);
    const QIcon icon = tabIcon(nIndex);
    removeTab(nIndex);
    insertTab(nIndex, pNew, icon, strText);
    setTabToolTip(nIndex, strToolTip);
    setCurrentWidget(pCurrent);
}

void CTabWidget::setEmptyPanel(QWidget *pPanel)
{
    m_pEmptyPanel = pPanel;
    showEmptyPanel();
}

void CTabWidget::showEmptyPanel()
{
    if (m_bReplacing)
        return;
    if (cornerWidget())
        cornerWidget()->setVisible(count() > 0);
    if (!m_pEmptyPanel)
        return;
    m_pEmptyPanel->setGeometry(rect());
    m_pEmptyPanel->setVisible(count() == 0);
    m_pEmptyPanel->raise();
}

void CTabWidget::resizeEvent(QResizeEvent *pEvent)
{
    QTabWidget::resizeEvent(pEvent);
    if (m_pEmptyPanel)
        m_pEmptyPanel->setGeometry(rect());
}

void CTabWidget::tabInserted(int nIndex)
{
    QTabWidget::tabInserted(nIndex);
    showEmptyPanel();
}

void CTabWidget::tabRemoved(int nIndex)
{
    QTabWidget::tabRemoved(nIndex);
    showEmptyPanel();
    // The document that went had the keyboard.
    if (m_pEmptyPanel && m_pEmptyPanel->isVisible() && !window()->focusWidget())
        focusPane(m_pEmptyPanel);
}

void CTabWidget::onClickAction()
{
    if (const auto *pAction = qobject_cast<QAction *>(sender()))
        emit clickAction(pAction->text());
}

void CTabWidget::mouseReleaseEvent(QMouseEvent *pEvent)
{
    QTabWidget::mouseReleaseEvent(pEvent);
    if (pEvent->button() != Qt::MiddleButton)
        return;
    // The position is deliberately the tab widget's own, not mapped to the tab bar.
    emit emitMidButtonRelease(tabBar() ? tabBar()->tabAt(pEvent->localPos().toPoint()) : -1);
}

void CTabWidget::mouseDoubleClickEvent(QMouseEvent *)
{
    emit tabBarDoubleClicked(-1);
}

void CTabWidget::contextMenuEvent(QContextMenuEvent *pEvent)
{
    if (!m_menu.isEmpty())
        m_menu.popup(pEvent->globalPos());
}
