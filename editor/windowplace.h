#pragma once

#include <QRect>

// Where a window has to lie so that it does not cover a spot, all in the screen's coordinates:
// where it is when it covers nothing, otherwise moved by as little as leaves it within the screen.
// Where there is no such place it stays.
QPoint placeBeside(const QRect &window, const QRect &spot, const QRect &screen);
