#include "platform/paths.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <climits>
#include <cstddef>
#include <string_view>

namespace orbisgrid {

namespace {

bool isFolder(const std::string& path) {
    struct stat status = {};
    return ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

} // namespace

std::string absolutePath(const std::string& path) {
    std::array<char, PATH_MAX> current{};
    if (path.starts_with('/') || ::getcwd(current.data(), current.size()) == nullptr)
        return path;
    std::string absolute = current.data();
    if (absolute != "/")
        absolute += '/';
    return absolute + path;
}

std::string cleanPath(const std::string& path) {
    std::string clean;
    std::string_view rest = path;
    while (!rest.empty()) {
        const std::string_view part = rest.substr(0, rest.find('/'));
        rest.remove_prefix(std::min(rest.size(), part.size() + 1));
        if (part == "..")
            clean.erase(std::min(clean.size(), clean.rfind('/')));
        else if (!part.empty() && part != ".")
            clean.append(1, '/').append(part);
    }
    return clean.empty() ? "/" : clean;
}

std::string parentFolder(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos)
        return {};
    return path.substr(0, std::max<std::size_t>(slash, 1));
}

std::string linkTarget(const std::string& path) {
    std::array<char, PATH_MAX> target{};
    const ssize_t length = ::readlink(path.c_str(), target.data(), target.size());
    return {target.data(), static_cast<std::size_t>(std::max<ssize_t>(length, 0))};
}

bool provideFolder(const std::string& path) {
    constexpr mode_t ownerOnly = 0700;
    if (path.empty() || isFolder(path))
        return true;
    // Another program may make it at the same moment.
    return provideFolder(parentFolder(path)) &&
           (::mkdir(path.c_str(), ownerOnly) == 0 || isFolder(path));
}

} // namespace orbisgrid
