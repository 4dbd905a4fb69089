#pragma once

#include <QList>

class QWidget;

// The parts of a window between which a key moves the focus, so that nobody needs a mouse to leave
// an editor in which Tab types a tab. GUI thread only.

// The next part after the one with the focus (nBy 1), or the one before it (-1); after the last
// comes the first. Skips parts that are hidden or cannot take the focus. Null if no other part can.
QWidget *nextPane(const QList<QWidget *> &lstPanes, const QWidget *pFocus, int nBy);

// Moves the focus to the widget of the part that had it last, else to the part's focus proxy or its
// first control.
void focusPane(QWidget *pPane);
