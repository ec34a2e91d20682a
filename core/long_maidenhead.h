#pragma once

#include "core/position.h"
#include "core/text.h"

#include <optional>

namespace orbisgrid {

/// What LongMaiden2Coordinates leaves: both coordinates in the signed print form of a single (a
/// blank or "-" in front), without hemisphere letters.
struct ExtendedPosition {
    Text LonText;
    Text LatText;
};

/// The south-west corner of a cell of ten characters, of which any that follow are ignored; nothing
/// where there are fewer or one is not of its kind (see LongMaiden2Coordinates). Each coordinate is
/// stored as single twice: before and after its extended part is added.
[[nodiscard]] std::optional<Position> cornerOfTen(TextView locator);

/// Decodes a locator of 4 to 10 characters to the south-west corner of its 10-character cell.
///
/// `strLongMaiden` is padded in place to 10 characters: "JO20" reads "JO20LL55AA" afterwards and
/// lands on the centre of its subsquare LL, "JO20AW" on the centre of its subsquare, "JO20AW12" on
/// the south-west corner of its extended square. Characters behind the tenth are ignored. Letters
/// are A to Z in upper case (the whole alphabet: ZZ99ZZ99ZZ decodes, outside the world), digits
/// 0 to 9.
///
/// Result: nothing for a malformed locator, one of fewer than 4 characters included.
[[nodiscard]] std::optional<ExtendedPosition> LongMaiden2Coordinates(Text& strLongMaiden);

/// Encodes a position to 10 characters. Degrees, east and north positive; both are overwritten with
/// intermediate values.
///
/// Every character is taken by rounding (halves to even) while the value still holds its fraction,
/// not by truncation, so from the middle of a cell on it is the next one: (4.0416, 50.9375) gives
/// JO21AX55YA. That is this encoder; the panels encode with World2Grid.
///
/// Throws RuntimeError 5 where a character code leaves 0..255, 6 where a whole part overflows.
[[nodiscard]] Text Coordinates2LongMaiden(double& E_Lon, double& N_Lat);

} // namespace orbisgrid
