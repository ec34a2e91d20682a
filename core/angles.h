#pragma once

#include "core/runtime_error.h"
#include "core/text.h"

#include <cmath>
#include <cstdint>

namespace orbisgrid {

/// Pi as this program writes it, to 15 digits. Deg2Rad and Atan2 use it, and their last digits
/// depend on it: it is not std::numbers::pi.
inline constexpr double pi15 = 3.14159265358979;

/// An angle in degrees, minutes and seconds.
struct Dms {
    double degrees{}; ///< whole
    double minutes{}; ///< whole, 0 to 59 (to 60 where storing as single rounds up)
    double seconds{}; ///< with their fraction, 0 to 60
};

/// Splits an angle in degrees. Degrees are its floor, so that a negative angle has positive minutes
/// behind degrees that are one lower; callers that want none pass a magnitude. `Stored` is the
/// precision (float or double) that the degrees, and the minutes with their fraction, are stored
/// in.
template <typename Stored>
[[nodiscard]] inline Dms splitAngle(double angle) {
    const auto degrees = static_cast<Stored>(std::floor(angle));
    const auto stored = static_cast<Stored>((angle - degrees) * 60);
    const double minutes = stored;
    const double wholeMinutes = std::floor(minutes);
    return {degrees, wholeMinutes, (minutes - wholeMinutes) * 60};
}

/// A decimal angle as degrees, minutes and seconds in the long form: a blank, whole degrees, "° ",
/// whole minutes, "' ", whole seconds (halves away from zero) and a double quote.
///
/// The degrees are the floor, so -4.5 gives -5° 30' 0". Seconds of 59.5 or more show as 60 and are
/// not carried. The steps are single: they decide the last second in rare cases.
[[nodiscard]] Text Convert_Degree(float Decimal_Deg);

/// The angle of a long-form text, in degrees. "~" is accepted where "°" would stand; the argument
/// afterwards holds "°". There is no sign handling: "-4° 2' 30" is -4 plus 2 minutes and 30
/// seconds.
///
/// Throws RuntimeError 5 where "°" or "'" is missing, "'" stands too close behind "°", or the text
/// ends right behind "'".
double Convert_Decimal(Text& Degree_Deg);

/// Degrees + minutes / 60 + seconds / 3600 of three texts, each read by the leading-number parse.
/// No range is checked: 75 minutes are 1.25 degrees. The two fractions are added first.
[[nodiscard]] double Dms2Decimal(TextView DegText, TextView MinText, TextView SecText);

/// The whole part, cut towards zero (-2.5 gives -2): despite its name no floor; callers rely on
/// the cut. Throws RuntimeError 6 for a value whose whole part does not fit 32 signed bits.
[[nodiscard]] std::int32_t Floor(double dblValue);

/// Degrees to radians.
inline double Deg2Rad(double Angle) {
    return Angle * (pi15 / 180);
}

/// The direction of the point (X, Y) in radians, from -pi up to pi. On the negative X axis it is
/// -pi, where std::atan2 gives +pi: the octants count that axis to the south. Throws RuntimeError
/// 11 at the origin.
inline double Atan2(double X, double Y) {
    if (X == 0 && Y == 0)
        RuntimeError::raise(RuntimeError::divisionByZero);
    // The quotient of the smaller by the greater: an arc tangent of 45 degrees at most.
    const bool isSteep = std::fabs(X) < std::fabs(Y);
    const double arc = std::atan(isSteep ? X / Y : Y / X);
    if (isSteep)
        return Y > 0 ? pi15 / 2 - arc : -arc - pi15 / 2;
    if (X > 0)
        return arc;
    return Y > 0 ? arc + pi15 : arc - pi15;
}

} // namespace orbisgrid
