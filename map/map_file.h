#pragma once

#include "core/text.h"
#include "map/azimuthal.h"
#include "map/outlines.h"
#include "map/sun.h"

#include <optional>
#include <string>
#include <vector>

namespace orbisgrid {

/// What a map is asked for in words.
struct MapFileOptions {
    Text home;                                   ///< a locator
    std::vector<Text> targets;                   ///< locators
    double radiusKilometres = halfCircumference; ///< 100 up to the whole world
    bool drawsPaths = true;
    std::optional<Moment> moment;       ///< day and night
    const Outlines* outlines = nullptr; ///< land and borders, where there are any
};

/// The map as an SVG file. Short locators are completed. Its title and description say the caption
/// of a single path; of several Targets how many there are.
///
/// Targets that fail their check are left out: they are for the caller to find. Result: nothing
/// where Home fails its check.
[[nodiscard]] std::optional<std::string> mapFile(const MapFileOptions& options);

} // namespace orbisgrid
