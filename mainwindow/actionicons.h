#pragma once

class QMainWindow;

// Gives the window's actions their icons, by object name.
void setActionIcons(QMainWindow *pWindow);
