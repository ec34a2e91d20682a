#include "tests/desktop/started_window.h"

#include "tests/support/child.h"

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <functional>
#include <stdexcept>

namespace orbisgrid::test {

namespace {

pid_t start(const std::string& command) {
    const pid_t child = ::fork();
    if (child < 0)
        throw std::runtime_error("cannot fork");
    if (child == 0) {
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
        ::execl("/bin/sh", "sh", "-c", ("exec " + command).c_str(), nullptr);
        ::_exit(127);
    }
    return child;
}

bool waitFor(int seconds, const std::function<bool()>& condition) {
    constexpr useconds_t pause = 20000;
    for (int i = 0; i < seconds * 50; ++i) {
        if (condition())
            return true;
        ::usleep(pause);
    }
    return false;
}

std::string lineOf(const std::string& command) {
    std::string text = shell(command + " 2>/dev/null").output;
    text.erase(text.find_last_not_of('\n') + 1);
    return text;
}

void type(const std::string& text) {
    shell("xdotool type --delay 5 '" + text + "'");
}

void key(const std::string& name) {
    shell("xdotool key --clearmodifiers " + name);
}

std::string clipboard() {
    return shell("timeout 5 xclip -o -selection clipboard -t UTF8_STRING 2>/dev/null").output;
}

} // namespace

StartedWindow::StartedWindow(const std::string& command)
    : m_process(start(command)) {
    const std::string search =
        "xdotool search --onlyvisible --pid " + std::to_string(m_process) + " | head -n 1";
    waitFor(60, [&] { return !(m_id = lineOf(search)).empty(); });
    if (!m_id.empty())
        shell("timeout 10 xdotool windowfocus --sync " + m_id + " 2>/dev/null");
}

StartedWindow::~StartedWindow() {
    if (m_process <= 0)
        return;
    ::kill(m_process, SIGKILL);
    ::waitpid(m_process, nullptr, 0);
}

std::string StartedWindow::latitudeAfter(const std::string& home, const std::string& target) const {
    shell("xclip -i -selection clipboard </dev/null >/dev/null 2>&1"); // nothing of before
    key("alt+h");
    type(home);
    key("alt+t");
    type(target);
    key("Return");
    key("alt+d");
    key("ctrl+c");
    std::string copied;
    waitFor(30, [&] { return !(copied = clipboard()).empty(); });
    return copied;
}

std::string StartedWindow::property(const std::string& name) const {
    std::string text;
    waitFor(30, [&] {
        text = shell("xprop -id " + m_id + " " + name + " 2>/dev/null").output;
        return text.find('=') != std::string::npos;
    });
    return text;
}

int StartedWindow::close() {
    key("ctrl+q");
    return waitForEnd();
}

int StartedWindow::waitForEnd() {
    int status = 0;
    if (!waitFor(60, [&] { return ::waitpid(m_process, &status, WNOHANG) == m_process; }))
        return -1;
    m_process = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : 1000 + WTERMSIG(status);
}

} // namespace orbisgrid::test
