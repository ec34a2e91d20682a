#pragma once

#include "core/text.h"

#include <optional>

namespace orbisgrid {

/// Whether a trimmed locator has a length that Calculate accepts: 4 to 6 characters.
[[nodiscard]] bool hasAcceptedLength(TextView locator);

/// Completes a short locator for its box: 4 characters become their upper-case form and "LL",
/// 5 their upper-case form and "L". Any other text is returned as it stands, its case untouched.
[[nodiscard]] Text completedLocator(TextView locator);

/// The check of a Home locator inside the distance calculation: completes 4 and 5 characters once
/// more (so the calculation is safe on its own), folds the case of field and subsquare, and
/// compares the first six characters with their ranges.
///
/// Result: 6 characters, the field in upper case and the subsquare in lower case ("JO20aw"), or
/// nothing if one is out of range. Ranges: A-R, A-S (the latitude letter may be one beyond the
/// alphabet of the grid: World2Grid gives it for the north pole), 0-9, 0-9, a-x, a-x.
/// Comparison is by code unit.
[[nodiscard]] std::optional<Text> checkedHome(TextView locator);

/// The same for a Target, with one more step before the range check: more than 6 characters fail,
/// and a text of 2 or 3 is cut to its first 2 and completed with "55ll".
[[nodiscard]] std::optional<Text> checkedTarget(TextView locator);

} // namespace orbisgrid
