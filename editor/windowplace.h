#pragma once

#include <QRect>

// Gives the place for a window that must not cover a spot, in screen coordinates. A window that
// does not cover it stays. Otherwise it moves as little as possible within the screen; if there is
// no such place, it stays.
QPoint placeBeside(const QRect &window, const QRect &spot, const QRect &screen);
