#include "tests/support/x_server.h"

#include "tests/support/child.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <functional>
#include <stdexcept>

namespace orbisgrid::test {

namespace {

/// A server or a manager, which says nothing that a test wants to hear.
pid_t startQuietly(const std::function<void()>& become) {
    return startChild([&] {
        const int nothing = ::open("/dev/null", O_RDWR | O_CLOEXEC);
        ::dup2(nothing, STDOUT_FILENO);
        ::dup2(nothing, STDERR_FILENO);
        become();
    });
}

/// The first line that comes through a pipe; as much of it as there is when nothing more comes.
std::string lineFrom(int pipe) {
    std::string line;
    char character = 0;
    pollfd waiting{pipe, POLLIN, 0};
    while (::poll(&waiting, 1, longestWait * 1000) == 1 && ::read(pipe, &character, 1) == 1 &&
           character != '\n')
        line += character;
    return line;
}

} // namespace

XServer::XServer(const std::string& screen) {
    std::array<int, 2> pipe{-1, -1};
    if (::pipe2(pipe.data(), O_CLOEXEC) != 0)
        throw std::runtime_error("cannot make a pipe");
    m_server = startQuietly([&] {
        constexpr int displayPipe = 3;
        const int aside = ::fcntl(pipe[1], F_DUPFD_CLOEXEC, 10);
        ::dup2(aside, displayPipe);
        // -noreset: otherwise the server starts over whenever its last client leaves.
        ::execlp("Xvfb", "Xvfb", "-displayfd", "3", "-screen", "0", screen.c_str(), "-nolisten",
                 "tcp", "-noreset", nullptr);
    });
    ::close(pipe[1]);
    const std::string number = lineFrom(pipe[0]);
    ::close(pipe[0]);
    if (number.empty()) {
        endChild(m_server, SIGTERM);
        throw std::runtime_error("Xvfb does not start");
    }
    m_display.append(":").append(number);
}

XServer::~XServer() {
    stop();
}

void XServer::useInThisProcess() const {
    ::setenv("DISPLAY", m_display.c_str(), 1);
    ::setenv("QT_QPA_PLATFORM", "xcb", 1);
    ::setenv("DBUS_SESSION_BUS_ADDRESS", "disabled:", 1);
    ::unsetenv("WAYLAND_DISPLAY");
}

void XServer::startWindowManager() {
    m_windowManager = startQuietly([&] {
        ::setenv("DISPLAY", m_display.c_str(), 1);
        ::execlp("openbox", "openbox", "--sm-disable", nullptr);
    });
    // Openbox says that it is there before it listens, and leaves a window that asks to be shown in
    // between unheeded until something else happens. Only an order that it has followed tells that
    // it listens (nine desktops are nobody's configuration); sent again and again, it is what
    // happens else.
    const std::string order = "export DISPLAY=" + m_display +
                              "; xdotool set_num_desktops 9 2>/dev/null"
                              "; xprop -root _NET_NUMBER_OF_DESKTOPS 2>/dev/null";
    const auto manages = [&] { return shell(order).output.find("= 9\n") != std::string::npos; };
    if (!waitUntil(manages, 60))
        throw std::runtime_error("openbox does not start");
}

void XServer::stop() {
    endChild(m_windowManager, SIGTERM);
    endChild(m_server, SIGTERM);
}

} // namespace orbisgrid::test
