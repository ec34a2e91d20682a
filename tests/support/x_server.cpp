#include "tests/support/x_server.h"

#include "tests/support/child.h"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <functional>
#include <stdexcept>

namespace orbisgrid::test {

namespace {

/// Starts a program that ends when the test does; `prepare` runs in the child before it.
pid_t start(const std::function<void()>& prepare) {
    const pid_t child = ::fork();
    if (child < 0)
        throw std::runtime_error("cannot fork");
    if (child == 0) {
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
        const int nothing = ::open("/dev/null", O_RDWR | O_CLOEXEC);
        ::dup2(nothing, STDOUT_FILENO);
        ::dup2(nothing, STDERR_FILENO);
        prepare();
        ::_exit(127);
    }
    return child;
}

void end(pid_t& child) {
    if (child <= 0)
        return;
    ::kill(child, SIGTERM);
    ::waitpid(child, nullptr, 0);
    child = -1;
}

/// The first line that comes through a pipe, which may take as long as it takes to start.
std::string lineFrom(int pipe) {
    std::string line;
    char character = 0;
    while (::read(pipe, &character, 1) == 1 && character != '\n')
        line += character;
    return line;
}

} // namespace

XServer::XServer(const std::string& screen) {
    std::array<int, 2> pipe{-1, -1};
    if (::pipe2(pipe.data(), O_CLOEXEC) != 0)
        throw std::runtime_error("cannot make a pipe");
    m_server = start([&] {
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
        end(m_server);
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
    m_windowManager = start([&] {
        ::setenv("DISPLAY", m_display.c_str(), 1);
        ::execlp("openbox", "openbox", "--sm-disable", nullptr);
    });
    constexpr int tries = 200;
    for (int i = 0; i < tries; ++i) {
        const std::string question =
            "xprop -display " + m_display + " -root _NET_SUPPORTING_WM_CHECK 2>/dev/null";
        if (shell(question).output.find("window id") != std::string::npos)
            return;
        ::usleep(50000);
    }
    throw std::runtime_error("openbox does not start");
}

void XServer::stop() {
    end(m_windowManager);
    end(m_server);
}

} // namespace orbisgrid::test
