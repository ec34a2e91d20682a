#pragma once

#include "core/position.h"

namespace orbisgrid {

/// A place as the unit vector from the middle of the sphere: x towards 0 north 0 east, y towards 0
/// north 90 east, z towards the north pole. Nothing is special at the poles and at the date line.
struct Direction {
    double x{}, y{}, z{};

    bool operator==(const Direction&) const = default;
};

[[nodiscard]] inline double dot(const Direction& a, const Direction& b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

[[nodiscard]] inline Direction cross(const Direction& a, const Direction& b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

/// `a` times `m` plus `b` times `n`; the result has whatever length that gives.
[[nodiscard]] inline Direction combined(const Direction& a, double m, const Direction& b,
                                        double n) {
    return {a.x * m + b.x * n, a.y * m + b.y * n, a.z * m + b.z * n};
}

/// The same direction with length 1; `direction` must not be zero.
[[nodiscard]] Direction normalised(const Direction& direction);

/// Whether a position can be a place: two numbers, of at most a hundred turns. Of larger ones the
/// sines mean nothing.
[[nodiscard]] bool isPlace(Position position);

/// The angle between two directions, radians: as right next to 0 and to pi as anywhere.
[[nodiscard]] double angleBetween(const Direction& one, const Direction& other);

/// A direction at a right angle to `direction`: always the same one, of length 1.
[[nodiscard]] Direction perpendicular(const Direction& direction);

/// The direction of a place. Latitudes beyond 90 degrees go on behind the pole.
[[nodiscard]] Direction directionOf(Position position);

/// The place of a direction: latitude -90 to 90, longitude -180 to 180 (not -180 itself where y is
/// +0); the longitude of a pole is 0 or 180. The length does not matter.
[[nodiscard]] Position positionOf(const Direction& direction);

} // namespace orbisgrid
