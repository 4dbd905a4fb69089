#include "mainwindow/ctabwidget.h"

#include "app/plaintext.h"
#include "mainwindow/ctabbar.h"
#include "mainwindow/panes.h"

#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QStackedWidget>

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
    setTabToolTip(nIndex, plainToolTip(visibleName(strText)));
}

void CTabWidget::replaceWidget(QWidget *pOld, QWidget *pNew)
{
    const QScopedValueRollback<bool> replacing(m_bReplacing, true); // So the widget is never empty.
    const int nIndex = indexOf(pOld);
    QWidget *pCurrent = currentWidget() == pOld ? pNew : currentWidget();
    // The old widget gives up the focus first, because a page that is hidden with it eats a Tab
    // key.
    const QWidget *pFocus = pOld->window()->focusWidget();
    const bool bFocus = pFocus && (pFocus == pOld || pOld->isAncestorOf(pFocus));
    pOld->clearFocus();
    const QString strText = tabText(nIndex);
    const QString strToolTip = tabToolTip(nIndex);
    const QIcon icon = tabIcon(nIndex);
    removeTab(nIndex);
    insertTab(nIndex, pNew, icon, strText);
    setTabToolTip(nIndex, strToolTip);
    setCurrentWidget(pCurrent);
    if (bFocus)
        pNew->setFocus();
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
    m_pEmptyPanel->setVisible(count() == 0);
    m_pEmptyPanel->raise();
    placeHeader();
}

void CTabWidget::setHeader(QWidget *pHeader)
{
    m_pHeader = pHeader;
    m_pHeader->setParent(this);
    m_pPages = findChild<QStackedWidget *>(QString(), Qt::FindDirectChildrenOnly);
    m_pagesArea = m_pPages->geometry();
    m_pHeader->installEventFilter(this);
    m_pPages->installEventFilter(this);
    placeHeader();
}

void CTabWidget::placeHeader()
{
    if (m_bPlacing)
        return;
    const QScopedValueRollback<bool> placing(m_bPlacing, true);
    const bool bPages = count() > 0;
    QRect area = bPages ? m_pagesArea : rect();
    if (m_pHeader && !m_pHeader->isHidden()) {
        const int nForWidth = m_pHeader->heightForWidth(area.width());
        const int nWanted = nForWidth > 0 ? nForWidth : m_pHeader->sizeHint().height();
        const int nHeight = qMin(nWanted, area.height() * 2 / 3);
        m_pHeader->setGeometry(area.left(), area.top(), area.width(), nHeight);
        m_pHeader->raise();
        area.setTop(area.top() + nHeight);
    }
    if (m_pPages && bPages) {
        m_pPages->setGeometry(area);
        m_placedArea = m_pPages->geometry(); // Pages may need more room than there is.
    }
    if (m_pEmptyPanel)
        m_pEmptyPanel->setGeometry(bPages ? rect() : area);
}

// The standard widget places its pages at any time, and the header's height follows its text.
bool CTabWidget::eventFilter(QObject *pObject, QEvent *pEvent)
{
    const bool bPlaced = (pEvent->type() == QEvent::Resize || pEvent->type() == QEvent::Move)
        && !m_bPlacing && m_pPages->geometry() != m_placedArea;
    const bool bHeaderChanged = pEvent->type() == QEvent::LayoutRequest
        || pEvent->type() == QEvent::ShowToParent || pEvent->type() == QEvent::HideToParent;
    if (pObject == m_pPages && bPlaced) {
        m_pagesArea = m_pPages->geometry();
        placeHeader();
    } else if (pObject == m_pHeader && bHeaderChanged) {
        placeHeader();
    }
    return QTabWidget::eventFilter(pObject, pEvent);
}

void CTabWidget::resizeEvent(QResizeEvent *pEvent)
{
    QTabWidget::resizeEvent(pEvent);
    if (count() == 0)
        placeHeader();
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
    // The closed document had the keyboard.
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
