#pragma once

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>

namespace orbisgrid::test {

/// Makes a folder for `purpose` among the system's temporary ones, which the caller removes. Throws
/// where there is none to be had.
inline std::filesystem::path newFolder(const std::string& purpose) {
    std::string pattern =
        (std::filesystem::temp_directory_path() / ("orbisgrid-" + purpose + "-XXXXXX")).string();
    if (::mkdtemp(pattern.data()) == nullptr)
        throw std::runtime_error("no temporary folder");
    return pattern;
}

} // namespace orbisgrid::test
