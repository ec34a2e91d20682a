#include "platform/clipboard_route.h"

#include <QStandardPaths>

namespace orbisgrid {

ClipboardRoute clipboardRoute(const ClipboardEnvironment& environment) {
    if (!environment.waylandDisplay.isEmpty() && environment.hasWaylandTool)
        return ClipboardRoute::waylandTool;
    return environment.display.isEmpty() ? ClipboardRoute::none : ClipboardRoute::x11Keeper;
}

ClipboardRoute clipboardRoute() {
    const QString waylandDisplay = qEnvironmentVariable("WAYLAND_DISPLAY");
    const bool hasWaylandTool =
        !waylandDisplay.isEmpty() &&
        !QStandardPaths::findExecutable(QStringLiteral("wl-copy")).isEmpty();
    return clipboardRoute({waylandDisplay, qEnvironmentVariable("DISPLAY"), hasWaylandTool});
}

} // namespace orbisgrid
