#pragma once

#include <sys/types.h>

#include <string>

namespace orbisgrid::test {

/// An X server of the test's own (Xvfb), for what an offscreen platform cannot show: the clipboard
/// between processes, stacking, window frames, exact titles.
///
///     XServer server;                // starts on a free display; throws if Xvfb does not start
///     server.useInThisProcess();     // before the first QGuiApplication
///     server.startWindowManager();   // openbox, where frames and stacking matter
///
/// It ends with this object and, should the test be killed, with the test. Programs are started on
/// it with `display()` as their DISPLAY, by QProcess, fork or a shell alike. To be used from one
/// thread, which must outlive it.
class XServer {
public:
    /// `screen`: width x height x depth.
    explicit XServer(const std::string& screen = "1280x1024x24");
    ~XServer();
    XServer(const XServer&) = delete;
    XServer& operator=(const XServer&) = delete;
    XServer(XServer&&) = delete;
    XServer& operator=(XServer&&) = delete;

    /// ":7"
    const std::string& display() const { return m_display; }

    /// Names this server to everything that this process starts or opens from now on: DISPLAY set,
    /// WAYLAND_DISPLAY taken away, Qt's platform xcb and no session bus.
    void useInThisProcess() const;

    /// Starts openbox and waits until it manages windows. Throws if it does not within a minute.
    void startWindowManager();

    /// Ends the window manager and the server, as a logout does. Once is enough.
    void stop();

private:
    std::string m_display;
    pid_t m_server = -1;
    pid_t m_windowManager = -1;
};

} // namespace orbisgrid::test
