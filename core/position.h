#pragma once

namespace orbisgrid {

/// A place: degrees, latitude first, north and east positive. Nothing is clamped: a text may name a
/// place beyond the world.
///
/// A coordinate that is defined to be stored as single holds the value of a single here. Whoever
/// writes its text casts it back (`plainText(static_cast<float>(longitude))`), which makes it one
/// of 7 digits and not of 15.
struct Position {
    double latitude{};
    double longitude{};

    bool operator==(const Position&) const = default;
};

} // namespace orbisgrid
