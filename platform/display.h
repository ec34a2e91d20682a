#pragma once

#include <QString>

namespace orbisgrid {

/// What the environment says about displays; empty for a variable that is not set.
struct DisplayEnvironment {
    QString display;        ///< DISPLAY
    QString waylandDisplay; ///< WAYLAND_DISPLAY
    QString qpaPlatform;    ///< QT_QPA_PLATFORM: "name:options", several with ";" between
};

/// Whether a window can be shown: a display is named, or the first platform that Qt is told to use
/// needs none. To be asked before a QApplication is made, which aborts where there is none.
bool hasDisplay(const DisplayEnvironment& environment);

/// Whether this process runs in a desktop session that answers: under Wayland, or on an X server
/// that can be connected to. Qt's platforms without a screen count for none. A DISPLAY left over
/// from a session that has ended does not answer.
bool isDesktopSession();

/// Whether Qt will find a display for a window of this process: it is in a desktop session, or Qt
/// is told to use a platform that needs none. A QApplication aborts where it does not.
bool isDisplayUsable();

} // namespace orbisgrid
