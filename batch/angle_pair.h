#pragma once

#include "core/position.h"
#include "core/text.h"

#include <optional>

namespace orbisgrid {

/// What a comma between two digits is.
enum class Comma { point, separator };

/// Latitude and longitude, each of one to three numbers.
struct AnglePair {
    Position position;
    bool isDecimal = false; ///< one number each: degrees alone
};

/// Reads two angles, latitude first: numbers in the order degrees, minutes, seconds, of which only
/// the last of each angle has decimals, with or without the marks °, ' and ". Minutes are below 60,
/// seconds at most 60. Each angle may have a sign, or both a letter (N, S; E, W; in any case), both
/// in front or both behind. Without letters they part at a comma or semicolon, at the second degree
/// mark, or in the middle. Nothing for other texts. The world's borders are not looked at.
[[nodiscard]] std::optional<AnglePair> readAnglePair(TextView text, Comma comma);

} // namespace orbisgrid
