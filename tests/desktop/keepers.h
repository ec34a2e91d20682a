#pragma once

#include "tests/support/child.h"

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

/// Waits up to half a minute for something that another process does. Result: whether it came.
inline bool comesTrue(const std::function<bool()>& condition) {
    return waitUntil(condition, 30);
}

} // namespace orbisgrid::test
