#pragma once

#include "core/text.h"
#include "geodesy/great_circle.h"
#include "map/path_map.h"

#include <optional>
#include <vector>

namespace orbisgrid {

/// What a map is about: the place in its middle, the places to draw, and the line that says so.
struct MapSubject {
    Position centre;
    std::optional<Text> home; ///< its locator; nothing where nobody has said where Home is
    std::vector<MapTarget> targets;
    Text caption;
};

/// A path that was calculated. Result: nothing where a locator fails its check.
[[nodiscard]] std::optional<MapSubject> subjectOfPath(LocatorPair calculated);

/// Before anything was calculated: the map around a locator of 4 to 6 characters, blanks around it
/// and its case aside, else around 0 north 0 east. The caption says what to do.
[[nodiscard]] MapSubject subjectBeforePath(TextView homeBox);

} // namespace orbisgrid
