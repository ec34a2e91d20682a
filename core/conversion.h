#pragma once

#include "core/text.h"

#include <optional>

namespace orbisgrid {

/// One coordinate as degrees, minutes and seconds: a magnitude in whole numbers and its side.
struct WholeDms {
    double Deg = 0;
    double Min = 0;
    double Sec = 0;          ///< 0 to 60: a 60 is kept and not carried into the minutes
    bool isNegative = false; ///< south or west
};

/// A decimal box as the conversions read it: every "," is a ".".
[[nodiscard]] Text withDecimalPoint(TextView boxText);

/// The degrees, minutes and seconds of a decimal box. The text is read by the leading-number parse;
/// seconds are rounded to a whole number, halves away from zero, degrees and minutes are cut.
/// Result: nothing where the number is too large to be one.
[[nodiscard]] std::optional<WholeDms> WorldDMS(TextView boxText);

/// What became of the two decimal boxes.
enum class DecimalCoordinatesOutcome {
    converted,
    unreadable, ///< a box could not be read as a number: the caller shows its message
    outOfGrid   ///< no locator stands for this position: the caller leaves the locator box alone
};

struct DecimalCoordinatesResult {
    DecimalCoordinatesOutcome outcome = DecimalCoordinatesOutcome::converted;
    Text locator; ///< 6 characters when converted
};

/// The locator of the two decimal boxes. Each text is trimmed, "," is read as ".", and its leading
/// number is taken. Either may be the unreadable one: the outcome is the same.
[[nodiscard]] DecimalCoordinatesResult DecimalCoordinates(TextView decLat, TextView decLong);

} // namespace orbisgrid
