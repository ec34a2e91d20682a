#pragma once

#include "map/map_frame.h"
#include "map/outlines.h"

namespace orbisgrid {

// What a picture shows of the outlines. Points that the line goes less than 0.15 units wrong
// without are left out.

/// Filled; lakes that the coasts hold are holes.
[[nodiscard]] Picture::Area landOf(const MapFrame& frame, const Outlines& outlines);

[[nodiscard]] Picture::Lines bordersOf(const MapFrame& frame, const Outlines& outlines);

} // namespace orbisgrid
