#pragma once

class QByteArray;

// True when the bytes are one whole frame state as Qt 5's QMainWindow::saveState() writes it,
// nothing missing, nothing left over. QMainWindow::restoreState() believes every count in what it
// is given: with one damaged bit it places two thousand million tool bars, and the window never
// comes up. States of windows that drag panels in groups, which this program has not, are refused,
// too.
bool isFrameStateWhole(const QByteArray &arrState);
