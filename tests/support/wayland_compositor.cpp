#include "tests/support/wayland_compositor.h"

#include "tests/support/child.h"
#include "tests/support/new_folder.h"

#include <sys/prctl.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <fstream>
#include <stdexcept>

namespace orbisgrid::test {

namespace fs = std::filesystem;

namespace {

// A compositor takes the first free name of this kind in its folder.
constexpr const char* waylandSocket = "wayland-1";
constexpr const char* controlSocket = "control";
constexpr const char* configuration = "config";

/// The folder is the compositor's, which runs as nobody where the test runs as root.
void giveToNobody(const fs::path& folder) {
    if (::geteuid() == 0 && ::chown(folder.c_str(), nobody, nobody) != 0)
        throw std::runtime_error("cannot give the folder away");
}

/// In the child. The compositor refuses to run as root.
void becomeCompositor(const fs::path& folder) {
    if (!dropRights())
        return;
    ::prctl(PR_SET_PDEATHSIG, SIGKILL); // giving up rights has taken it back
    becomeCommand("env -u DISPLAY -u WAYLAND_DISPLAY XDG_RUNTIME_DIR=" + folder.string() +
                  " HOME=" + folder.string() + " SWAYSOCK=" + (folder / controlSocket).string() +
                  " WLR_BACKENDS=headless WLR_LIBINPUT_NO_DEVICES=1 WLR_RENDERER=pixman"
                  " sway -c " +
                  (folder / configuration).string() + " >/dev/null 2>&1");
}

} // namespace

WaylandCompositor::WaylandCompositor()
    : m_folder(newFolder("wayland")) {
    try {
        start();
    } catch (...) {
        end();
        throw;
    }
}

WaylandCompositor::~WaylandCompositor() {
    end();
}

void WaylandCompositor::start() {
    std::ofstream(m_folder / configuration) << "xwayland disable\n";
    giveToNobody(m_folder);
    m_compositor = startChild([this] { becomeCompositor(m_folder); });
    const auto answers = [this] {
        return fs::exists(m_folder / waylandSocket) && fs::exists(m_folder / controlSocket);
    };
    if (!waitUntil(answers, 60))
        throw std::runtime_error("sway does not start");
}

void WaylandCompositor::end() {
    endChild(m_compositor, SIGTERM);
    std::error_code error;
    fs::remove_all(m_folder, error);
}

void WaylandCompositor::useInThisProcess() const {
    ::setenv("WAYLAND_DISPLAY", (m_folder / waylandSocket).c_str(), 1);
    ::setenv("SWAYSOCK", (m_folder / controlSocket).c_str(), 1);
    ::setenv("DBUS_SESSION_BUS_ADDRESS", "disabled:", 1);
    ::unsetenv("DISPLAY");
    ::unsetenv("QT_QPA_PLATFORM");
}

bool WaylandCompositor::waitForWindow(const std::string& title) {
    // The last window that is made has the focus.
    const std::string criteria = "'[title=\"^" + title + "$\"] focus' >/dev/null 2>&1";
    return waitUntil([&] { return shell("timeout 10 swaymsg " + criteria).status == 0; }, 60);
}

void WaylandCompositor::type(const std::string& arguments) {
    // A keyboard of its own that goes with it: programs need a moment to notice either.
    shell("timeout 20 wtype -s 500 " + arguments + " -s 200");
}

std::string WaylandCompositor::clipboardText() {
    return shell("timeout 5 wl-paste --no-newline 2>/dev/null").output;
}

} // namespace orbisgrid::test
