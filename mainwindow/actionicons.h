#pragma once

#include <QIcon>
#include <QString>

class QMainWindow;

// The icon of that name, sharp in menus (16 px) and toolbars (24 px).
QIcon actionIcon(const QString &strName);

// Gives the window's actions their icons, by object name.
void setActionIcons(QMainWindow *pWindow);
