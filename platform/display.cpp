#include "platform/display.h"

#include <QStringList>

#include <xcb/xcb.h>

namespace orbisgrid {

namespace {

bool needsNoDisplay(const QString& qpaPlatform) {
    const QStringList withoutDisplay{QStringLiteral("offscreen"),  QStringLiteral("minimal"),
                                     QStringLiteral("minimalegl"), QStringLiteral("vnc"),
                                     QStringLiteral("linuxfb"),    QStringLiteral("eglfs")};
    return withoutDisplay.contains(qpaPlatform.section(u';', 0, 0).section(u':', 0, 0));
}

bool xServerAnswers() {
    xcb_connection_t* connection = xcb_connect(nullptr, nullptr);
    const bool answers = xcb_connection_has_error(connection) == 0;
    xcb_disconnect(connection);
    return answers;
}

} // namespace

DisplayEnvironment displayEnvironment() {
    return {qEnvironmentVariable("DISPLAY"), qEnvironmentVariable("WAYLAND_DISPLAY"),
            qEnvironmentVariable("QT_QPA_PLATFORM"), qEnvironmentVariable("XDG_SESSION_TYPE")};
}

bool hasDisplay(const DisplayEnvironment& environment) {
    return !environment.display.isEmpty() || !environment.waylandDisplay.isEmpty() ||
           needsNoDisplay(environment.qpaPlatform);
}

bool mayUseWayland(const DisplayEnvironment& environment) {
    const QString wayland = QStringLiteral("wayland");
    return !environment.waylandDisplay.isEmpty() || environment.qpaPlatform.contains(wayland) ||
           environment.sessionType == wayland;
}

bool isDesktopSession() {
    return !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ||
           (!qEnvironmentVariableIsEmpty("DISPLAY") && xServerAnswers());
}

} // namespace orbisgrid
