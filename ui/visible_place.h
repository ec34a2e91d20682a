#pragma once

#include <QList>
#include <QPoint>
#include <QRect>
#include <QSize>

namespace orbisgrid {

/// A screen: all of it, and what panels and docks leave of it.
struct ScreenArea {
    QRect whole;
    QRect available;
};

/// What a window manager puts around a window, at most.
inline constexpr QSize windowFrame(16, 48);

/// Where a window is put that belongs at `window` (its frame with it): there, if enough of its
/// title is on a screen to take hold of it, however little else is; otherwise at the nearest place
/// where all of it is on a screen, or its upper left corner where the screen is too small.
/// `screens` must not be empty.
QPoint visiblePlace(const QRect& window, const QList<ScreenArea>& screens);

} // namespace orbisgrid
