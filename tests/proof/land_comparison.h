#pragma once

#include "map/path_map.h"

#include <functional>

namespace orbisgrid::test {

/// Says whether a picture shows land at a point of it.
using ShownLand = std::function<bool(Picture::Point)>;

/// What came of the places that were looked at.
struct LandComparison {
    int looked = 0;
    int land = 0;
    int differing = 0; ///< shown as the other one
    int wrong = 0;     ///< of these, farther than two pixels from a coast
};

/// The side of the pictures in pixels: one is a picture unit.
inline constexpr int landPixels = 1000;

/// Makes maps around 300 centres (poles, antipodes on land, the date line among them), asks `shown`
/// for what each of them shows, and holds it against another test of the sphere at 2,000 random
/// places each. Ends early where it is hopeless.
LandComparison compareLand(const std::function<ShownLand(const PathMapOptions&)>& shown);

} // namespace orbisgrid::test
