#include "platform/program_folder.h"

#include "platform/environment.h"
#include "platform/paths.h"

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
    if (!named.empty())
        return withoutTrailingSeparators(absolutePath(named));
    const std::string folder = executableFolder();
    return folder.empty() ? withoutTrailingSeparators(absolutePath("")) : folder;
}

std::string executableFolder() {
    // Not by argv[0], which the caller chooses.
    return parentFolder(linkTarget("/proc/self/exe"));
}

} // namespace orbisgrid
