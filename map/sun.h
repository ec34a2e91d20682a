#pragma once

#include "core/position.h"
#include "core/text.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace orbisgrid {

/// A moment of Universal Time: seconds since the beginning of 1970, without leap seconds.
struct Moment {
    std::int64_t seconds{};

    bool operator==(const Moment&) const = default;
};

/// The moment of a text such as "2026-06-21T12:00:00Z". Strict: these twenty characters, a date of
/// the (proleptic) Gregorian calendar from year 1 on, seconds up to 59. Result: nothing for any
/// other text.
[[nodiscard]] std::optional<Moment> parsedMoment(std::string_view text);

/// The text that `parsedMoment` reads. A moment outside of the years 1 to 9999 gives the nearest
/// one within.
[[nodiscard]] std::string momentText(Moment moment);

/// The same for a person, to the minute: "2026-06-21 12:00 UTC".
[[nodiscard]] Text momentNote(Moment moment);

/// The place that has the sun in its zenith. Low-precision formulas (J. Meeus, Astronomical
/// Algorithms, 1998, chapters 12 and 25): within 0.05 degrees from 1950 to 2100. Longitude -180 up
/// to 180.
[[nodiscard]] Position subsolarPoint(Moment moment);

} // namespace orbisgrid
