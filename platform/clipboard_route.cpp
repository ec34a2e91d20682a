#include "platform/clipboard_route.h"

#include "platform/environment.h"
#include "platform/programs.h"

namespace orbisgrid {

ClipboardRoute clipboardRoute(const ClipboardEnvironment& environment) {
    if (!environment.waylandDisplay.empty() && environment.hasWaylandTool)
        return ClipboardRoute::waylandTool;
    return environment.display.empty() ? ClipboardRoute::none : ClipboardRoute::x11Keeper;
}

ClipboardRoute clipboardRoute() {
    const std::string waylandDisplay = environmentVariable("WAYLAND_DISPLAY");
    const bool hasWaylandTool = !waylandDisplay.empty() && !findProgram("wl-copy").empty();
    return clipboardRoute({waylandDisplay, environmentVariable("DISPLAY"), hasWaylandTool});
}

} // namespace orbisgrid
