#pragma once

#include <QObject>

class QMainWindow;
class QMenuBar;

// Makes Alt with a letter open the menu that begins with it (see openMenuOfLetter()), wherever the
// focus is in the window. Pressed again it opens the next such menu. Letters of no menu go to the
// widget with the focus.
class CMenuLetters : public QObject
{
    Q_OBJECT

public:
    // Make it once the window's menus have their titles.
    explicit CMenuLetters(QMainWindow *pWindow);

protected:
    // Watches the menus, because an open one gets all keys.
    bool eventFilter(QObject *pObject, QEvent *pEvent) override;

private:
    void addLetter(QMainWindow *pWindow, QChar cLetter);

    QMenuBar *m_pBar;
    bool m_bAltAlone = false; // Alt is down on an open menu, and nothing else was pressed.
};
