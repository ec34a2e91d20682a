#pragma once

#include "map/map_frame.h"
#include "map/outlines.h"
#include "map/sun.h"

#include <optional>
#include <vector>

namespace orbisgrid {

/// A place to draw, with what stands beside it. One that is none (see `isPlace`) is not drawn.
struct MapTarget {
    Position place;
    Text text;
};

/// What a map shows.
struct PathMapOptions {
    MapView view;                       ///< Home is its centre
    std::optional<Text> home;           ///< a dot at the centre and this beside it
    std::vector<MapTarget> targets;     ///< the first ones have room first
    bool drawsPaths = true;             ///< between Home and each Target, both ways round
    std::optional<Moment> moment;       ///< day and night, and the moment written
    const Outlines* outlines = nullptr; ///< land and borders, where there are any
    std::optional<Position> cross;      ///< a place that was picked
};

/// The azimuthal equidistant map around Home, north up: outlines, night, locator grid, rings of
/// distance, rim with bearings, paths, and texts where there is room for them: Home, Targets,
/// moment, bearings, rings, grid, in this order.
///
/// Everything but the bearings is within the rim; what is beyond is left out, paths are cut there.
/// The path to Home itself is none. To the antipode it is drawn due north, and the long one due
/// south.
[[nodiscard]] Picture pathMap(const PathMapOptions& options);

} // namespace orbisgrid
