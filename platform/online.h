#pragma once

#include <string_view>

namespace orbisgrid {

/// Whether a default route exists, from the texts of /proc/net/route and /proc/net/ipv6_route.
/// A route counts when it leads everywhere (destination and mask 0), is up, does not reject, and
/// does not run over the loopback interface. Lines that are no routes are passed over.
bool hasDefaultRoute(std::string_view routes, std::string_view ipv6Routes);

/// The same for the system as it is now. Says that packets have a way out, not that anybody
/// answers: it sends nothing and takes a tenth of a millisecond.
bool isOnline();

} // namespace orbisgrid
