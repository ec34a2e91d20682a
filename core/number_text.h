#pragma once

#include "core/text.h"

#include <cstdint>
#include <optional>
#include <string>

namespace orbisgrid {

// Reading numbers -------------------------------------------------------------------------------

/// The leading-number parse: blanks (code 32) in front are skipped, then one sign, then digits with
/// at most one point; the first character that cannot belong to the number ends it. A text without
/// a leading number gives 0. Never an exponent, never hexadecimal, never "inf" or "nan", and always
/// a point, whatever the locale. "-0" gives 0. A number beyond double's range gives infinity.
[[nodiscard]] double leadingNumber(TextView text);

/// The strict conversion: blanks around, one sign, digits with at most one point and at least one
/// digit, and nothing else. Result: the number, or nothing for any other text.
[[nodiscard]] std::optional<double> strictNumber(TextView text);

/// The nearest whole number, halves to even; nothing where it does not fit 32 signed bits (or
/// where `value` is no number).
[[nodiscard]] std::optional<std::int32_t> nearestInt32(double value);

/// The same for 16 signed bits.
[[nodiscard]] std::optional<std::int16_t> nearestInt16(double value);

// Writing numbers -------------------------------------------------------------------------------

/// The plain form: the decimal text of a single, at most 7 significant digits (the exact value
/// rounded, not the shortest text that reads back), no trailing zeros, no exponent however large or
/// small, "0" before the point below 1, never "-0". Infinity and NaN give texts ("inf", "nan") that
/// the leading-number parse reads as 0.
[[nodiscard]] Text plainText(float value);

/// The same of a double, at most 15 significant digits.
[[nodiscard]] Text plainText(double value);

/// The plain form of a double with the 7 digits of a single: for texts made of a value before it is
/// stored as single, where rounding to single first would change the seventh digit.
[[nodiscard]] Text plainTextOfSeven(double value);

/// The same three behind the bytes of a file. Nothing is allocated while `bytes` has room.
void appendPlainText(std::string& bytes, float value);
void appendPlainText(std::string& bytes, double value);
void appendPlainTextOfSeven(std::string& bytes, double value);

/// The signed print form: the plain form with a blank in front of a value that is not negative.
[[nodiscard]] Text printText(float value);
[[nodiscard]] Text printText(double value);

/// The masks "0", "00", "000", "##00", "###000": `value` to a whole number, halves away from zero,
/// with leading zeros up to `minimumDigits` digits (1 to 15) and more digits if it needs them.
[[nodiscard]] Text wholeMask(double value, std::size_t minimumDigits);

/// `value` rounded to a whole number as the mask "0" does it: halves away from zero. The exact
/// value decides, not its text: 13.499999999999998, which 0.00375 degrees give in seconds, is 13.
[[nodiscard]] double wholeMaskValue(double value);

/// The mask ".#####": up to five decimals, halves away from zero, no digit forced in front of the
/// point, and the point always: 0.5 is ".5", 50 is "50.", -0.5 is "-.5".
[[nodiscard]] Text fiveDecimalMask(double value);

} // namespace orbisgrid
