#pragma once

#include <QObject>

class QMainWindow;
class QMenuBar;

// Alt with a letter opens the menu that begins with it (see openMenuOfLetter()), wherever the
// window has the keyboard; pressed again, the next such menu. Letters that no menu begins with stay
// with whoever has the keyboard.
class CMenuLetters : public QObject
{
    Q_OBJECT

public:
    // Once the window's menus have their titles.
    explicit CMenuLetters(QMainWindow *pWindow);

protected:
    // Of the menus: an open one has all keys.
    bool eventFilter(QObject *pObject, QEvent *pEvent) override;

private:
    void addLetter(QMainWindow *pWindow, QChar cLetter);

    QMenuBar *m_pBar;
    bool m_bAltAlone = false; // It is down on an open menu, and nothing else was pressed.
};
