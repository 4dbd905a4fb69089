#include "editor/windowplace.h"

#include <algorithm>
#include <array>

QPoint placeBeside(const QRect &window, const QRect &spot, const QRect &screen)
{
    if (!window.intersects(spot))
        return window.topLeft();
    std::array<QPoint, 4> arrMoves = {
        QPoint(0, spot.bottom() + 1 - window.top()), QPoint(0, spot.top() - 1 - window.bottom()),
        QPoint(spot.right() + 1 - window.left(), 0), QPoint(spot.left() - 1 - window.right(), 0)};
    std::stable_sort(
        arrMoves.begin(), arrMoves.end(),
        [](const QPoint &a, const QPoint &b) { return a.manhattanLength() < b.manhattanLength(); });
    const auto place = std::find_if(arrMoves.cbegin(), arrMoves.cend(), [&](const QPoint &move) {
        return screen.contains(window.translated(move));
    });
    return window.topLeft() + (place == arrMoves.cend() ? QPoint() : *place);
}
