#pragma once

#include "tests/support/child.h"

#include <filesystem>
#include <optional>
#include <string>

namespace orbisgrid::test {

/// The real program in surroundings of its own: a program folder with an INI file, a home folder,
/// nothing of the user's. Started through a shell, as a person starts it.
class Program {
public:
    Program();
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;
    Program(Program&&) = delete;
    Program& operator=(Program&&) = delete;

    /// Runs it with arguments until it ends. `redirections` go behind the arguments ("2>&1").
    ShellResult run(const std::string& arguments, const std::string& redirections = {}) const;

    /// The same without any display; `variables` ("NAME=value ...") are set all the same.
    ShellResult runWithoutDisplay(const std::string& arguments,
                                  const std::string& redirections = {},
                                  const std::string& variables = {}) const;

    /// The shell's command that starts the window, with `variables` ("NAME=value ...") set.
    std::string windowCommand(const std::string& variables) const;

    /// Starts the window in the background and waits until it is on the screen and has a frame.
    /// Result: its window id; empty if it did not come within `seconds`.
    std::string startWindow(int seconds = 60);

    /// Ends what `startWindow` started, as a session does (SIGTERM), and waits for it.
    /// Result: whether it ended within a minute.
    bool terminate();

    /// Whether what `startWindow` started has ended.
    bool hasEnded() const;

    std::filesystem::path folder() const { return m_root / "program"; }

    std::filesystem::path configFolder() const { return m_root / "config"; }

    std::string ini() const;
    void writeIni(const std::string& content) const;

    /// The delivered INI file with one text in the place of another.
    void changeIni(const std::string& from, const std::string& to) const;

    /// What was opened with the stand-in for xdg-open, if anything.
    std::optional<std::string> openedAddress() const;

private:
    std::string environment() const;

    std::filesystem::path m_root;
    std::string m_pid;
};

/// Whether the process with this number has ended, waited for or not.
bool processHasEnded(const std::string& process);

/// The text on the clipboard, read by another program.
std::string clipboardText();

/// Runs xdotool. Result: what it printed.
std::string xdotool(const std::string& arguments);

/// Waits up to a minute for a window with exactly this title. Result: its id or nothing.
std::string waitForWindow(const std::string& title);

} // namespace orbisgrid::test
