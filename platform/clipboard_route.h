#pragma once

#include <string>

namespace orbisgrid {

/// How a text gets onto a clipboard that outlives this process.
enum class ClipboardRoute {
    waylandTool, ///< wl-copy: only the compositor's own tools reach a clipboard without a window
    x11Keeper,   ///< a child of ours that owns the selection
    none         ///< there is no clipboard
};

/// What decides; empty for a variable that is not set.
struct ClipboardEnvironment {
    std::string waylandDisplay;  ///< WAYLAND_DISPLAY
    std::string display;         ///< DISPLAY
    bool hasWaylandTool = false; ///< wl-copy is on the PATH
};

/// A Wayland display with its tool first, then an X display (which may be Xwayland: it works under
/// some compositors), else none.
ClipboardRoute clipboardRoute(const ClipboardEnvironment& environment);

/// The same for the environment of this process.
ClipboardRoute clipboardRoute();

} // namespace orbisgrid
