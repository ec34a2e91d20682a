#pragma once

#include "core/position.h"
#include "core/text.h"

#include <cstddef>

namespace orbisgrid {

/// What Maiden2World decodes a locator to.
struct LocatorPosition {
    Text LonText;      ///< longitude with its sign, at most 7 digits, and "E" or "W": "-75.04167W"
    Text LatText;      ///< latitude likewise, with "N" or "S": "50.9375N"
    Position position; ///< the same centre, stored as singles
};

/// What Maiden2WorldHMS decodes a locator to. Magnitudes; the letters carry the hemisphere.
struct LocatorPositionHMS {
    Text LonText;    ///< absolute longitude, at most 15 digits, and "E" or "W": no minus sign here
    Text LatText;    ///< absolute latitude likewise, with "N" or "S"
    Text LonDmsText; ///< "004°.02'.30 E": the points and the blank belong to it
    Text LatDmsText; ///< "50°.56'.15 N"
    double LonDeg{}, LonMin{}, LonSec{}; ///< LonSec keeps its fraction ...
    double LatDeg{}, LatMin{}, LatSec{}; ///< ... LatSec is whole, halves away from zero
};

/// Decodes a locator of 4, 5 or 6 characters to the centre of its subsquare.
///
/// `locator` is upper-cased and completed in place: "jo20" reads "JO20LL" afterwards, so a
/// 4-character locator stands for the centre of subsquare LL, 2.5 minutes west and 1.25 minutes
/// south of the square's centre: every locator then stands for the centre of one subsquare.
/// Characters behind the sixth are ignored. No character is checked: a letter beyond the alphabet
/// gives a position beyond the world. 0 counts as north and east.
///
/// Throws RuntimeError 5 for fewer than 4 characters (the change in place has happened by then).
LocatorPosition Maiden2World(Text& locator);

/// The centre of a subsquare in double precision, before anything is stored as single: what the
/// texts of Maiden2World are made of. `locator` has at least 6 characters in upper case, none of
/// which is checked.
[[nodiscard]] Position centreOfSix(TextView locator);

/// Decodes like Maiden2World, in double precision and with texts in degrees, minutes and seconds.
/// A character that is missing counts as code 0; nothing is raised. Seconds of 59.5 or more show as
/// "60", since the minutes are cut first.
LocatorPositionHMS Maiden2WorldHMS(Text& locator);

/// Encodes a position to 6 characters by truncation. Degrees, east and north positive.
///
/// Both arguments are left at the remainders in units of a square (2.0208... and 0.9375 for
/// JO20AW): pass copies. Nothing is clamped: longitude 180 and latitude 90 give letter "S". A point
/// on the border of two cells may fall in the one to the west or south, as the divisions round:
/// longitude 4 with latitude 50 is JO10XA.
///
/// Throws RuntimeError 6 where an index leaves 16 signed bits, and 5 where a character code leaves
/// 0..255.
[[nodiscard]] Text World2Grid(double& Longitude, double& Latitude);

/// The 6-character locator of a place: World2Grid, which see for its borders and what it throws.
[[nodiscard]] Text locatorOf(Position position);

/// The locator of `characters` (6, 8 or 10) characters: the six of World2Grid, then further pairs
/// by the same rule, each cut and never rounded. Throws what World2Grid throws.
[[nodiscard]] Text locatorOf(Position position, std::size_t characters);

/// Encodes a position to 6 characters; `LongCo` counts positive towards the WEST, `LatCo` towards
/// the north. `TypeConvert` is accepted and not used. Result: empty where the latitude letter comes
/// out as "S" (latitude 90 up to 100). Throws RuntimeError 5 where a code leaves 0..255.
[[nodiscard]] Text World2Maiden(double LongCo, double LatCo, int TypeConvert);

} // namespace orbisgrid
