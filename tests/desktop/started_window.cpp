#include "tests/desktop/started_window.h"

#include "tests/support/child.h"

#include <csignal>

namespace orbisgrid::test {

namespace {

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
    : m_process(startChild([&] { becomeCommand(command); })) {
    const std::string search =
        "xdotool search --onlyvisible --pid " + std::to_string(m_process) + " | head -n 1";
    waitUntil([&] { return !(m_id = lineOf(search)).empty(); }, 60);
    if (!m_id.empty())
        shell("timeout 10 xdotool windowfocus --sync " + m_id + " 2>/dev/null");
}

StartedWindow::~StartedWindow() {
    endChild(m_process, SIGKILL);
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
    waitUntil([&] { return !(copied = clipboard()).empty(); }, 30);
    return copied;
}

std::string StartedWindow::property(const std::string& name) const {
    std::string text;
    waitUntil(
        [&] {
            text = shell("xprop -id " + m_id + " " + name + " 2>/dev/null").output;
            return text.find('=') != std::string::npos;
        },
        30);
    return text;
}

int StartedWindow::close() {
    key("ctrl+q");
    return waitForEnd();
}

int StartedWindow::waitForEnd() {
    return waitForChild(m_process);
}

} // namespace orbisgrid::test
