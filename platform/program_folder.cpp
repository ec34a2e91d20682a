#include "platform/program_folder.h"

#include "platform/environment.h"

#include <filesystem>
#include <utility>

namespace orbisgrid {

namespace {

std::string withoutTrailingSeparators(std::string path) {
    while (path.size() > 1 && path.ends_with('/'))
        path.pop_back();
    return path;
}

} // namespace

std::string programFolder() {
    const std::string named = environmentVariable("ORBISGRID_PROGRAM_FOLDER");
    std::string folder = named.empty() ? executableFolder() : named;
    std::error_code error; // without a current folder a relative path stays what it is
    const std::string absolute = folder.empty() ? std::filesystem::current_path(error).string()
                                                : std::filesystem::absolute(folder, error).string();
    return withoutTrailingSeparators(error ? std::move(folder) : absolute);
}

std::string executableFolder() {
    // Not by argv[0], which the caller chooses.
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error).parent_path().string();
}

} // namespace orbisgrid
