#pragma once

#include <QString>

#include <functional>
#include <vector>

class QPoint;
class QWidget;

namespace orbisgrid {

/// An entry of the array `mnuPaste`; without a caption it is a separator.
struct MenuEntry {
    QString caption;
    std::function<void()> chosen;
};

/// Shows the pop-up menu of the locator box, `mnuOptions`, and returns when it has closed.
///
/// Its parent is the window and not the box: a menu of a disabled widget closes when the mouse
/// button that opened it is released. `mnuPasted` runs for "Paste"; the entries of `mnuPaste` stand
/// below it, each named by its index (`mnuPaste_0`).
void showOptionsMenu(QWidget& window, const QPoint& globalPosition,
                     const std::function<void()>& mnuPasted,
                     const std::vector<MenuEntry>& mnuPaste);

} // namespace orbisgrid
