#include "browser/cmenulistview.h"

#include "browser/actionmenu.h"

#include <QContextMenuEvent>

CMenuListView::CMenuListView(QWidget *pParent) : QListView(pParent) { }

void CMenuListView::setActions(const QStringList &lstActions)
{
    m_lstActions = lstActions;
    fillActionMenu(&m_menuActions, lstActions, this, &CMenuListView::onClickAction);
}

void CMenuListView::onClickAction()
{
    if (const auto *pAction = qobject_cast<QAction *>(sender()))
        emit clickAction(pAction->text());
}

void CMenuListView::contextMenuEvent(QContextMenuEvent *pEvent)
{
    if (!m_lstActions.isEmpty())
        m_menuActions.popup(mapToGlobal(pEvent->pos()));
}
