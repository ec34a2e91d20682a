#include "ui/visible_place.h"

#include <algorithm>

namespace orbisgrid {

namespace {

/// What a window manager draws a title on, and what of it one can take hold of, in pixels.
constexpr int titleHeight = 24;
constexpr QSize grip(48, 12);

// NOLINTNEXTLINE(bugprone-easily-swappable-parameters): what is held, and where
bool canBeTakenHoldOf(const QRect& window, const QRect& screen) {
    const QRect title(window.topLeft(), QSize(window.width(), titleHeight));
    const QRect seen = title.intersected(screen);
    return seen.width() >= grip.width() && seen.height() >= grip.height();
}

int nearest(int wanted, int first, int last) {
    return std::max(std::min(wanted, last), first);
}

QPoint nearestPlace(const QRect& window, const QRect& area) {
    return {nearest(window.x(), area.x(), area.x() + area.width() - window.width()),
            nearest(window.y(), area.y(), area.y() + area.height() - window.height())};
}

} // namespace

QPoint visiblePlace(const QRect& window, const QList<ScreenArea>& screens) {
    QPoint best;
    int least = -1;
    for (const ScreenArea& screen : screens) {
        if (canBeTakenHoldOf(window, screen.whole))
            return window.topLeft();
        const QPoint place = nearestPlace(window, screen.available);
        const int way = (place - window.topLeft()).manhattanLength();
        if (least < 0 || way < least) {
            least = way;
            best = place;
        }
    }
    return best;
}

} // namespace orbisgrid
