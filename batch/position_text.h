#pragma once

#include "core/position.h"
#include "core/text.h"

#include <optional>
#include <string_view>

namespace orbisgrid {

/// How a position may be written.
enum class Notation { automatic, locator, decimal, dms, uiview };

/// The notation of this name ("auto" for the first); nothing for another text.
[[nodiscard]] std::optional<Notation> notationNamed(std::string_view name);

/// A position as it was read.
struct ReadPosition {
    Position position;     ///< within the world
    bool isSingle = false; ///< its texts have 7 digits and not 15
    Text locator;          ///< of a locator: completed to ten characters, in capitals
};

struct PositionReading {
    std::optional<ReadPosition> position;
    std::string_view refusal; ///< why there is none
};

/// Reads a position, latitude first. `text` is UTF-8, or Windows-1252 where it is not.
///
/// - locator: 4 to 10 characters in any case, of the letters of the grid; the point is the one that
///   the converter decodes it to.
/// - decimal: two numbers with a point or a comma, with signs or with letters of the hemispheres,
///   in front or behind: "50.9375 4.041667", "50,9375; 4,041667", "50.9375N 4.041667E".
/// - dms: degrees and minutes, or degrees, minutes and seconds, with or without their marks:
///   "50°56'15"N 4°2'30"E", "N 50 56.25 E 4 2.5". The last number of each may have decimals.
/// - uiview: "=5056.15N/00402.30E", the digits behind the points being seconds. Its sign in front
///   may be missing, unless the latitude begins with 0. Letters are capitals.
/// - automatic: whichever it is.
///
/// Refused: what is none of these, what may be decimal as well as degrees and minutes
/// ("50,56 4,2"), and what lies outside the world.
[[nodiscard]] PositionReading readPosition(std::string_view text, Notation notation);

} // namespace orbisgrid
