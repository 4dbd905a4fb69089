#pragma once

#include "mainwindow/tabnames.h"

#include <QMenu>
#include <QToolButton>

#include <functional>

class QTabWidget;

// The button at the end of the tabs: a menu of all of them, with folders where names are alike.
class CTabListButton : public QToolButton
{
    Q_OBJECT

public:
    // fnNames: the names of the tabs as they are now, in their order.
    CTabListButton(QTabWidget *pTabs, std::function<QVector<STabName>()> fnNames);

private:
    void fillMenu();
    void goTo(QWidget *pWidget);

    QTabWidget *m_pTabs;
    std::function<QVector<STabName>()> m_fnNames;
    QMenu m_menu;
};
