#pragma once

class QByteArray;

// True if the bytes are exactly one frame state as QMainWindow::saveState() of Qt 5 writes it.
// QMainWindow::restoreState() believes every count in its bytes: with one damaged bit it places two
// thousand million tool bars, and the window never comes up. States of windows with grouped
// dragging, which this program does not use, are refused, too.
bool isFrameStateWhole(const QByteArray &arrState);
