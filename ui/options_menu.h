#pragma once

#include <functional>

class QPoint;
class QWidget;

namespace orbisgrid {

/// Shows the pop-up menu of the locator box, `mnuOptions`, and returns when it has closed.
///
/// Its parent is the window and not the box: a menu of a disabled widget closes when the mouse
/// button that opened it is released. `mnuPasted` runs for "Paste", `mnuPaste` with the index of
/// one of the entries below it.
void showOptionsMenu(QWidget& window, const QPoint& globalPosition,
                     const std::function<void()>& mnuPasted,
                     const std::function<void(int)>& mnuPaste);

} // namespace orbisgrid
