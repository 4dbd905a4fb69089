#pragma once

#include <QList>

class QWidget;

// The parts of a window between which a key steps, so that nobody needs a mouse to leave an editor
// in which Tab types a tab. GUI thread only.

// The next part after the one that has the keyboard (nBy 1) or the one before it (-1), round the
// end; parts that are hidden or hold nothing for the keyboard are passed over. Null when no other
// part can have it.
QWidget *nextPane(const QList<QWidget *> &lstPanes, const QWidget *pFocus, int nBy);

// Gives the keyboard to what had it last in the part, otherwise to what the part says itself
// (its focus proxy) or to its first control.
void focusPane(QWidget *pPane);
