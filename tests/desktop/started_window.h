#pragma once

#include <sys/types.h>

#include <string>

namespace orbisgrid::test {

/// The program's window, started by a command of the test's own and driven with the keyboard, with
/// or without a window manager. The test's display must be in the environment.
class StartedWindow {
public:
    /// Runs `command` with /bin/sh, in the place of the shell, and waits up to a minute for its
    /// window.
    explicit StartedWindow(const std::string& command);
    ~StartedWindow();
    StartedWindow(const StartedWindow&) = delete;
    StartedWindow& operator=(const StartedWindow&) = delete;
    StartedWindow(StartedWindow&&) = delete;
    StartedWindow& operator=(StartedWindow&&) = delete;

    /// The window; empty if it did not come.
    const std::string& id() const { return m_id; }

    /// Types both locators and presses Enter, goes to the decimal latitude, and copies it.
    /// Result: what is on the clipboard then: the Target's latitude.
    std::string latitudeAfter(const std::string& home, const std::string& target) const;

    /// What xprop says of a property; empty if it does not come within half a minute.
    std::string property(const std::string& name) const;

    /// Presses Ctrl+Q and waits as `waitForEnd` does.
    int close();

    /// Waits. Result: the exit status, 1000 and the signal's number after a signal, -1 where it
    /// still runs after a minute.
    int waitForEnd();

private:
    pid_t m_process = -1;
    std::string m_id;
};

} // namespace orbisgrid::test
