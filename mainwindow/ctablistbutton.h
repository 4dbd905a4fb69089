#pragma once

#include "mainwindow/tabnames.h"

#include <QMenu>
#include <QToolButton>

#include <functional>

class QTabWidget;

// The button at the end of the tabs with a menu of all of them. Folders tell equal names apart.
class CTabListButton : public QToolButton
{
    Q_OBJECT

public:
    // fnNames gives the present names of the tabs, in their order.
    CTabListButton(QTabWidget *pTabs, std::function<QVector<STabName>()> fnNames);

private:
    void fillMenu();
    void goTo(QWidget *pWidget);

    QTabWidget *m_pTabs;
    std::function<QVector<STabName>()> m_fnNames;
    QMenu m_menu;
};
