#pragma once

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

namespace orbisgrid::test {

/// The processes that run the clipboard probe on this display.
inline std::vector<pid_t> keepersOn(const std::string& display) {
    std::vector<pid_t> found;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
        const std::string name = entry.path().filename();
        if (name.find_first_not_of("0123456789") != std::string::npos ||
            std::filesystem::read_symlink(entry.path() / "exe", error) != ORBISGRID_CLIPBOARD_PROBE)
            continue;
        std::ifstream file(entry.path() / "environ", std::ios::binary);
        for (std::string variable; std::getline(file, variable, '\0');) {
            if (variable == "DISPLAY=" + display)
                found.push_back(std::stoi(name));
        }
    }
    return found;
}

/// Children of this process that have ended and that nobody has waited for.
inline int zombiesOfThisProcess() {
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
        std::ifstream file(entry.path() / "stat");
        std::string line;
        if (!std::getline(file, line))
            continue;
        // Behind the name in parentheses: the state, then the parent.
        const std::string mark = ") Z " + std::to_string(::getpid()) + " ";
        count += line.find(mark) != std::string::npos ? 1 : 0;
    }
    return count;
}

/// Waits up to five seconds for something that another process does. Result: whether it came.
inline bool comesTrue(const std::function<bool()>& condition) {
    for (int i = 0; i < 500; ++i) {
        if (condition())
            return true;
        ::usleep(10000);
    }
    return false;
}

} // namespace orbisgrid::test
