#include "platform/online.h"

#include "platform/safe_file.h"

#include <algorithm>
#include <charconv>
#include <string>
#include <vector>

namespace orbisgrid {

namespace {

// The kernel's flags of a route, the same for both families.
constexpr unsigned long routeIsUp = 0x0001;
constexpr unsigned long routeRejects = 0x0200;

/// The parts of `text` between any of `separators`.
std::vector<std::string_view> parts(std::string_view text, std::string_view separators) {
    std::vector<std::string_view> found;
    while (true) {
        const std::size_t start = text.find_first_not_of(separators);
        if (start == std::string_view::npos)
            return found;
        text.remove_prefix(start);
        found.push_back(text.substr(0, text.find_first_of(separators)));
        text.remove_prefix(found.back().size());
    }
}

// NOLINTNEXTLINE(bugprone-easily-swappable-parameters): as a line of the table names them
bool leadsOut(std::string_view interfaceName, std::string_view flags) {
    unsigned long bits = 0;
    const auto [end, error] = std::from_chars(flags.data(), flags.data() + flags.size(), bits, 16);
    return error == std::errc() && (bits & routeIsUp) != 0 && (bits & routeRejects) == 0 &&
           interfaceName != "lo";
}

/// Interface, destination, gateway, flags, reference count, use, metric, mask, …
bool isDefaultRoute(const std::vector<std::string_view>& route) {
    return route.size() > 7 && route[1] == "00000000" && route[7] == "00000000" &&
           leadsOut(route[0], route[3]);
}

/// Destination, its length, source, its length, next hop, metric, reference count, use, flags,
/// interface.
bool isIpv6DefaultRoute(const std::vector<std::string_view>& route) {
    return route.size() == 10 && route[0] == std::string(32, '0') && route[1] == "00" &&
           leadsOut(route[9], route[8]);
}

template <typename IsDefault>
bool anyLine(std::string_view text, IsDefault isDefault) {
    const std::vector<std::string_view> lines = parts(text, "\n");
    return std::any_of(lines.begin(), lines.end(),
                       [&](std::string_view line) { return isDefault(parts(line, " \t\r")); });
}

std::string contentOf(const std::string& path) {
    return readFile(path).value_or(std::string());
}

} // namespace

bool hasDefaultRoute(std::string_view routes, std::string_view ipv6Routes) {
    return anyLine(routes, isDefaultRoute) || anyLine(ipv6Routes, isIpv6DefaultRoute);
}

bool isOnline() {
    return hasDefaultRoute(contentOf("/proc/net/route"), contentOf("/proc/net/ipv6_route"));
}

} // namespace orbisgrid
