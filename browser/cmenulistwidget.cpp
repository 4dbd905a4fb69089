#include "browser/cmenulistwidget.h"

#include "browser/actionmenu.h"

#include <QContextMenuEvent>

CMenuListWidget::CMenuListWidget(QWidget *pParent) : QListWidget(pParent) { }

void CMenuListWidget::setActions(const QStringList &lstActions)
{
    m_lstActions = lstActions;
    fillActionMenu(&m_menuActions, lstActions, this, &CMenuListWidget::onClickAction);
}

void CMenuListWidget::onClickAction()
{
    if (const auto *pAction = qobject_cast<QAction *>(sender()))
        emit clickAction(pAction->text());
}

void CMenuListWidget::contextMenuEvent(QContextMenuEvent *pEvent)
{
    if (!m_lstActions.isEmpty())
        m_menuActions.popup(mapToGlobal(pEvent->pos()));
}
