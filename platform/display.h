#pragma once

#include <string>

namespace orbisgrid {

/// What the environment says about displays; empty for a variable that is not set.
struct DisplayEnvironment {
    std::string display;          ///< DISPLAY
    std::string waylandDisplay;   ///< WAYLAND_DISPLAY
    std::string qpaPlatform;      ///< QT_QPA_PLATFORM: "name:options", several with ";" between
    std::string sessionType = {}; ///< XDG_SESSION_TYPE: "x11", "wayland"
};

/// What this process's environment says.
DisplayEnvironment displayEnvironment();

/// Whether a window may be possible: a display is named, or the first platform that Qt is told to
/// use needs none. Whether the display answers is not asked.
bool hasDisplay(const DisplayEnvironment& environment);

/// Whether Qt may open its window under Wayland. Where it is certain of X11: false.
bool mayUseWayland(const DisplayEnvironment& environment);

/// Whether this process runs in a desktop session that answers: under Wayland, or on an X server
/// that can be connected to. Qt's platforms without a screen count for none. A DISPLAY left over
/// from a session that has ended does not answer.
bool isDesktopSession();

} // namespace orbisgrid
