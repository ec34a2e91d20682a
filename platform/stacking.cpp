#include "platform/stacking.h"

#include <QWindow>

namespace orbisgrid {

void setTopMost(QWindow& window, bool onTop) {
    // The widget's own setWindowFlag would hide the window and show another one in its place.
    window.setFlag(Qt::WindowStaysOnTopHint, onTop);
}

} // namespace orbisgrid
