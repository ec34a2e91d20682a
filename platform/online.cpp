#include "platform/online.h"

#include <array>
#include <charconv>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

namespace orbisgrid {

namespace {

// The kernel's flags of a route, the same for both families.
constexpr unsigned long routeIsUp = 0x0001;
constexpr unsigned long routeRejects = 0x0200;

std::vector<std::string> words(const std::string& line) {
    std::istringstream stream(line);
    return {std::istream_iterator<std::string>(stream), {}};
}

bool leadsOut(const std::string& interfaceName, const std::string& flags) {
    unsigned long bits = 0;
    const auto [end, error] = std::from_chars(flags.data(), flags.data() + flags.size(), bits, 16);
    return error == std::errc() && (bits & routeIsUp) != 0 && (bits & routeRejects) == 0 &&
           interfaceName != "lo";
}

/// Interface, destination, gateway, flags, reference count, use, metric, mask, …
bool isDefaultRoute(const std::vector<std::string>& route) {
    return route.size() > 7 && route[1] == "00000000" && route[7] == "00000000" &&
           leadsOut(route[0], route[3]);
}

/// Destination, its length, source, its length, next hop, metric, reference count, use, flags,
/// interface.
bool isIpv6DefaultRoute(const std::vector<std::string>& route) {
    return route.size() == 10 && route[0] == std::string(32, '0') && route[1] == "00" &&
           leadsOut(route[9], route[8]);
}

template <typename IsDefault>
bool anyLine(std::string_view text, IsDefault isDefault) {
    std::istringstream stream{std::string(text)};
    for (std::string line; std::getline(stream, line);) {
        if (isDefault(words(line)))
            return true;
    }
    return false;
}

std::string contentOf(const char* path) {
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace

bool hasDefaultRoute(std::string_view routes, std::string_view ipv6Routes) {
    return anyLine(routes, isDefaultRoute) || anyLine(ipv6Routes, isIpv6DefaultRoute);
}

bool isOnline() {
    return hasDefaultRoute(contentOf("/proc/net/route"), contentOf("/proc/net/ipv6_route"));
}

} // namespace orbisgrid
