#pragma once

class QWindow;

namespace orbisgrid {

/// Keeps a window above all others, or no longer. A window that is on the screen stays there: it is
/// neither hidden nor moved nor made anew. One that is not yet shown must exist (QWidget::winId()
/// makes it) and comes up in its place in the stack.
/// Where the window system has no such order (Wayland) nothing happens.
void setTopMost(QWindow& window, bool onTop);

} // namespace orbisgrid
