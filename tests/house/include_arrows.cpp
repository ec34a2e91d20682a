#include "tests/house/include_arrows.h"

#include <algorithm>
#include <fstream>
#include <map>
#include <regex>
#include <set>

namespace orbisgrid::test {

namespace {

using Rooms = std::set<std::string>;

/// The house: which rooms a room may include besides itself. ARCHITECTURE.md draws it.
const std::map<std::string, Rooms>& arrows() {
    static const std::map<std::string, Rooms> table{
        {"core", {}},
        {"geodesy", {"core"}},
        {"aprs", {"core"}},
        {"map", {"core", "geodesy"}},
        {"settings", {"core"}},
        {"panels", {"core", "geodesy", "aprs"}},
        {"records", {"core"}},
        {"platform", {"settings"}},
        {"ui", {"panels", "map", "settings", "platform"}},
        {"app", {"ui", "panels", "platform", "settings"}},
        {"batch", {"records", "geodesy", "aprs", "map", "core", "platform"}},
    };
    return table;
}

/// Single files beyond the arrows: every room may speak in texts, and those are core's.
bool isAllowedFile(const std::string& room, const std::string& included) {
    return (room == "ui" || room == "platform") && included == "core/text.h";
}

/// The room that a file or an include belongs to: the folder that its path begins with.
std::string roomOf(const std::string& place) {
    return place.substr(0, place.find('/'));
}

/// The headers of the C++ standard library that the rooms use. An allow-list: whatever is not on it
/// is the operating system's or a library's.
bool isStandardHeader(const std::string& included) {
    static const std::set<std::string> standard{
        "algorithm",    "array",      "cerrno",        "charconv",
        "chrono",       "cmath",      "csignal",       "cstddef",
        "cstdint",      "cstdio",     "cstdlib",       "cstring",
        "deque",        "filesystem", "functional",    "initializer_list",
        "iterator",     "limits",     "map",           "memory",
        "numbers",      "numeric",    "optional",      "set",
        "span",         "stdexcept",  "string",        "string_view",
        "system_error", "tuple",      "unordered_map", "utility",
        "variant",      "vector"};
    return standard.contains(included);
}

/// Where Qt is: the windows, and the library that they are put together in. `place` is a file or
/// what an include names.
bool isWhereQtIs(const std::string& place) {
    return place.starts_with("ui/") || place.starts_with("app/window/");
}

/// Why a file may not include a header in angle brackets; empty if it may.
std::string whyNotLibrary(const std::string& file, const std::string& included) {
    if (included.starts_with("Q"))
        return isWhereQtIs(file) ? "" : "Qt outside ui/ and app/window/";
    if (isStandardHeader(included) || roomOf(file) == "platform")
        return {};
    if (file == "batch/options.cpp" && included == "getopt.h")
        return {}; // how every command of the system reads its options
    return "not the standard library, and outside platform/";
}

/// Why a file may not include one of our own headers; empty if it may.
std::string whyNotOurs(const std::string& file, const std::string& included) {
    const std::string room = roomOf(file);
    const std::size_t slash = included.find('/');
    if (slash == std::string::npos)
        return "not written from the root";
    const bool isExecutables = room == "app" && !isWhereQtIs(file);
    if (isExecutables && isWhereQtIs(included) && included != "ui/version.h")
        return "the executable does without Qt";
    const std::string other = roomOf(included);
    if (other == room || arrows().at(room).contains(other) || isAllowedFile(room, included))
        return {};
    return "no arrow from " + room + "/ to " + other + "/";
}

void checkFile(const std::filesystem::path& root, const std::filesystem::path& path,
               std::vector<std::string>& broken) {
    static const std::regex pattern(R"(^\s*#\s*include\s*([<"])([^>"]+)[>"])");
    const std::string file = path.lexically_relative(root).generic_string();
    std::ifstream stream(path);
    std::string line;
    while (std::getline(stream, line)) {
        std::smatch match;
        if (!std::regex_search(line, match, pattern))
            continue;
        const std::string why =
            match[1] == "\"" ? whyNotOurs(file, match[2]) : whyNotLibrary(file, match[2]);
        if (!why.empty())
            broken.push_back(file + ": " + match[2].str() + ": " + why);
    }
}

} // namespace

std::vector<std::string> brokenArrows(const std::filesystem::path& root) {
    std::vector<std::string> broken;
    for (const auto& [room, allowed] : arrows()) {
        if (!std::filesystem::exists(root / room))
            continue;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(root / room)) {
            const std::string extension = entry.path().extension().string();
            if (extension == ".cpp" || extension == ".h" || extension == ".in")
                checkFile(root, entry.path(), broken);
        }
    }
    std::sort(broken.begin(), broken.end());
    return broken;
}

} // namespace orbisgrid::test
