#include "platform/display.h"

#include "platform/environment.h"

#include <algorithm>
#include <array>
#include <string_view>

#include <xcb/xcb.h>

namespace orbisgrid {

namespace {

bool needsNoDisplay(std::string_view qpaPlatform) {
    constexpr std::array<std::string_view, 6> withoutDisplay{"offscreen", "minimal", "minimalegl",
                                                             "vnc",       "linuxfb", "eglfs"};
    const std::string_view first = qpaPlatform.substr(0, qpaPlatform.find_first_of(";:"));
    return std::find(withoutDisplay.begin(), withoutDisplay.end(), first) != withoutDisplay.end();
}

bool xServerAnswers() {
    xcb_connection_t* connection = xcb_connect(nullptr, nullptr);
    const bool answers = xcb_connection_has_error(connection) == 0;
    xcb_disconnect(connection);
    return answers;
}

} // namespace

DisplayEnvironment displayEnvironment() {
    return {environmentVariable("DISPLAY"), environmentVariable("WAYLAND_DISPLAY"),
            environmentVariable("QT_QPA_PLATFORM"), environmentVariable("XDG_SESSION_TYPE")};
}

bool hasDisplay(const DisplayEnvironment& environment) {
    return !environment.display.empty() || !environment.waylandDisplay.empty() ||
           needsNoDisplay(environment.qpaPlatform);
}

bool mayUseWayland(const DisplayEnvironment& environment) {
    constexpr std::string_view wayland = "wayland";
    return !environment.waylandDisplay.empty() ||
           environment.qpaPlatform.find(wayland) != std::string::npos ||
           environment.sessionType == wayland;
}

bool isDesktopSession() {
    const DisplayEnvironment environment = displayEnvironment();
    return !environment.waylandDisplay.empty() ||
           (!environment.display.empty() && xServerAnswers());
}

} // namespace orbisgrid
