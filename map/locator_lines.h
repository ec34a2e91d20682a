#pragma once

#include "map/labels.h"
#include "map/map_frame.h"

#include <vector>

namespace orbisgrid {

/// Which cells of the locator grid a map shows.
enum class GridLevel {
    fields, ///< from a radius of 1,500 km on
    squares ///< below
};

[[nodiscard]] GridLevel gridLevelOf(const MapFrame& frame);

/// The borders of the cells. Close to a pole, where they would be less than 4 units apart, the
/// meridians of squares end; those of fields run on.
[[nodiscard]] Picture::Lines gridOf(const MapFrame& frame);

/// For each cell whose middle is within the rim, from the centre outwards, the places for its label
/// ("JO", "JO20"), the best one first.
[[nodiscard]] std::vector<std::vector<Picture::Label>> gridLabels(const MapFrame& frame);

} // namespace orbisgrid
