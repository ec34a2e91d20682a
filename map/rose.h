#pragma once

#include "map/labels.h"
#include "map/map_frame.h"

#include <vector>

namespace orbisgrid {

// The rim with its bearings, and the circles of distance.

/// The kilometres of the rings: multiples of 1, 2 or 5 times a power of ten, at least 3 and at most
/// 6 of them, none as close to the rim as a hundredth of the radius. `radiusKilometres` is the
/// rim's: 100 km up to the whole world.
[[nodiscard]] std::vector<double> ringKilometres(double radiusKilometres);

/// A mark at each tenth degree, outside of the rim; longer ones at each thirtieth.
[[nodiscard]] Picture::Lines ticksOf(const MapFrame& frame);

/// N, E, S and W.
[[nodiscard]] std::vector<Picture::Label> cardinalsOf(const MapFrame& frame);

/// The other thirtieth degrees.
[[nodiscard]] std::vector<Picture::Label> bearingsOf(const MapFrame& frame);

/// The places for the label of a ring, the best one first.
[[nodiscard]] std::vector<Picture::Label> ringLabels(const MapFrame& frame, double kilometres);

} // namespace orbisgrid
