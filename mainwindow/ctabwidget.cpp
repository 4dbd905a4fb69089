#include "mainwindow/ctabwidget.h"

#include "app/plaintext.h"

#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QTabBar>

CTabWidget::CTabWidget(QWidget *pParent) : QTabWidget(pParent) { }

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
    const int nIndex = indexOf(pOld);
    // The old one loses its focus first: a page that is hidden with it takes a tab key.
    pOld->clearFocus();
    const QString strText = tabText(nIndex);
    const QString strToolTip = tabToolTip(nIndex);
    const QIcon icon = tabIcon(nIndex);
    removeTab(nIndex);
    insertTab(nIndex, pNew, icon, strText);
    setTabToolTip(nIndex, strToolTip);
    setCurrentIndex(nIndex);
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
