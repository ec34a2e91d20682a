#include "tests/desktop/program.h"

#include "tests/support/new_folder.h"

#include <fstream>
#include <iterator>
#include <stdexcept>

namespace orbisgrid::test {

namespace fs = std::filesystem;

namespace {

std::string read(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

void write(const fs::path& file, const std::string& content) {
    std::ofstream(file, std::ios::binary) << content;
}

std::string trimmedLine(std::string text) {
    text.erase(text.find_last_not_of('\n') + 1);
    return text;
}

} // namespace

Program::Program()
    : m_root(newFolder("program")) {
    for (const char* name : {"program", "config", "home", "bin", "runtime"})
        fs::create_directory(m_root / name);
    fs::permissions(m_root / "runtime", fs::perms::owner_all);
    fs::copy_file(fs::path(ORBISGRID_SOURCES) / "Orbisgrid.ini", folder() / "Orbisgrid.ini");
    fs::copy_file(fs::path(ORBISGRID_SOURCES) / "Readme.txt", folder() / "Readme.txt");
    write(m_root / "bin/xdg-open",
          "#!/bin/sh\nprintf '%s' \"$1\" > '" + (m_root / "opened").string() + "'\n");
    fs::permissions(m_root / "bin/xdg-open", fs::perms::owner_all);
}

Program::~Program() {
    if (!m_pid.empty())
        shell("kill -9 " + m_pid + " 2>/dev/null");
    std::error_code error;
    fs::remove_all(m_root, error);
}

std::string Program::environment() const {
    const auto path = [this](const char* name) { return (m_root / name).string(); };
    return "env ORBISGRID_PROGRAM_FOLDER=" + path("program") +
           " XDG_CONFIG_HOME=" + path("config") + " HOME=" + path("home") +
           " XDG_RUNTIME_DIR=" + path("runtime") + " PATH=" + path("bin") +
           ":$PATH DBUS_SESSION_BUS_ADDRESS=disabled: ";
}

ShellResult Program::run(const std::string& arguments, const std::string& redirections) const {
    return shell(environment() + "timeout 20 " + ORBISGRID_PROGRAM + " " + arguments + " " +
                 redirections);
}

ShellResult Program::runWithoutDisplay(const std::string& arguments,
                                       const std::string& redirections,
                                       const std::string& variables) const {
    return shell("env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM " + environment() +
                 variables + " timeout 20 " + ORBISGRID_PROGRAM + " " + arguments + " " +
                 redirections);
}

std::string Program::windowCommand(const std::string& variables) const {
    return environment() + variables + " " + ORBISGRID_PROGRAM;
}

std::string Program::startWindow(int seconds) {
    const ShellResult started =
        shell(environment() + ORBISGRID_PROGRAM + " >/dev/null 2>&1 & echo $!");
    m_pid = trimmedLine(started.output);
    std::string window;
    // With a frame: the window manager has taken it over by then.
    waitUntil(
        [&] {
            window = trimmedLine(
                shell("xdotool search --onlyvisible --pid " + m_pid + " 2>/dev/null | head -n 1")
                    .output);
            return !window.empty() &&
                   shell("xprop -id " + window + " _NET_FRAME_EXTENTS 2>/dev/null | grep -q '='")
                           .status == 0;
        },
        seconds);
    return window;
}

bool processHasEnded(const std::string& process) {
    // A process that nobody has waited for yet is a zombie, for as long as its new parent likes.
    return shell("grep -q '^State:[[:space:]]*[^Z[:space:]]' /proc/" + process +
                 "/status 2>/dev/null")
               .status != 0;
}

bool Program::hasEnded() const {
    return processHasEnded(m_pid);
}

bool Program::terminate() {
    shell("kill -TERM " + m_pid);
    return waitUntil([this] { return hasEnded(); }, 60);
}

std::string Program::ini() const {
    return read(folder() / "Orbisgrid.ini");
}

void Program::writeIni(const std::string& content) const {
    write(folder() / "Orbisgrid.ini", content);
}

void Program::changeIni(const std::string& from, const std::string& to) const {
    std::string content = ini();
    const std::size_t place = content.find(from);
    if (place == std::string::npos)
        throw std::runtime_error("not in the INI file: " + from);
    writeIni(content.replace(place, from.size(), to));
}

std::optional<std::string> Program::openedAddress() const {
    const fs::path record = m_root / "opened";
    if (!waitUntil([&] { return fs::exists(record) && fs::file_size(record) > 0; }, 3))
        return std::nullopt;
    return read(record);
}

std::string clipboardText() {
    return shell("timeout 5 xclip -o -selection clipboard -t UTF8_STRING 2>/dev/null").output;
}

std::string xdotool(const std::string& arguments) {
    return trimmedLine(shell("xdotool " + arguments + " 2>/dev/null").output);
}

std::string waitForWindow(const std::string& title) {
    std::string window;
    waitUntil(
        [&] {
            window = xdotool("search --onlyvisible --name '^" + title + "$' | head -n 1");
            return !window.empty();
        },
        60);
    return window;
}

} // namespace orbisgrid::test
