#pragma once

#include "map/path_map.h"
#include "map/svg.h"

namespace orbisgrid {

/// What a map says of itself in a file: "Path from JO20AW to FN42AA" or what else it shows, and in
/// sentences its radius, the path's caption (where it is not empty), the moment of day and night.
[[nodiscard]] SvgWords mapWords(const PathMapOptions& map, TextView caption);

} // namespace orbisgrid
