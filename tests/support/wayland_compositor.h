#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>

namespace orbisgrid::test {

/// A Wayland compositor of the test's own (sway, without a screen), for what only a real one shows:
/// a window there, its keyboard, and the clipboard that the compositor's tools reach.
///
///     WaylandCompositor compositor;      // throws if sway does not start
///     compositor.useInThisProcess();     // for the programs that are started from now on
///
/// It ends with this object and, should the test be killed, with the test. One at a time, from one
/// thread, which must outlive it.
class WaylandCompositor {
public:
    WaylandCompositor();
    ~WaylandCompositor();
    WaylandCompositor(const WaylandCompositor&) = delete;
    WaylandCompositor& operator=(const WaylandCompositor&) = delete;
    WaylandCompositor(WaylandCompositor&&) = delete;
    WaylandCompositor& operator=(WaylandCompositor&&) = delete;

    /// Names it to everything that this process starts, the functions below among them:
    /// WAYLAND_DISPLAY set, DISPLAY and Qt's platform taken away, no session bus.
    void useInThisProcess() const;

    /// Waits up to a minute for a window with exactly this title and gives it the focus.
    static bool waitForWindow(const std::string& title);

    /// Types with a virtual keyboard into the window that has the focus: arguments of wtype.
    static void type(const std::string& arguments);

    /// The text on the clipboard, read by another program.
    static std::string clipboardText();

private:
    void start();
    void end();

    std::filesystem::path m_folder; ///< holds its sockets
    pid_t m_compositor = -1;
};

} // namespace orbisgrid::test
