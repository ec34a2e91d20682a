#pragma once

#include "core/text.h"

#include <cstddef>

namespace orbisgrid {

// How the Maidenhead grid divides the world (IARU Region 1, 1980). Its corner is 180 degrees west,
// 90 degrees south. Each pair of characters names a column to the east and then a row to the north.

inline constexpr double fieldLongitude = 20;   ///< degrees
inline constexpr double fieldLatitude = 10;    ///< degrees
inline constexpr int squaresPerField = 10;     ///< each way, and extended squares in a subsquare
inline constexpr int subsquaresPerSquare = 24; ///< each way, and extended subsquares likewise

inline constexpr double squareLongitude = fieldLongitude / squaresPerField; ///< degrees
inline constexpr double squareLatitude = fieldLatitude / squaresPerField;   ///< degrees
inline constexpr double subsquaresPerDegreeLongitude = subsquaresPerSquare / squareLongitude;
inline constexpr double subsquaresPerDegreeLatitude = subsquaresPerSquare / squareLatitude;

/// A locator with the missing ones of its characters 5 to `length` (6 or 10) filled in: subsquare
/// LL, extended square 55, extended subsquare AA. "JO20" becomes "JO20LL55AA", the point that
/// "JO20LL" stands for; "JO20A" becomes "JO20AL". Its case stays. A text of fewer than 4 or of
/// `length` and more characters is returned as it stands.
[[nodiscard]] Text completedTo(std::size_t length, Text locator);

} // namespace orbisgrid
