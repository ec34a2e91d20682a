#pragma once

#include "core/text.h"

namespace orbisgrid {

/// A point as the distance calculation counts it: longitude positive towards the WEST, unlike the
/// rest of the program. Degrees, single precision.
struct WestPositivePoint {
    float lonW{};
    float lat{};
};

/// Distance and azimuth between two points.
struct GreatCircle {
    float dist{}; ///< kilometres on a sphere of 6367 km
    float az{};   ///< degrees from north over east, 0 up to 360, at the first point
};

/// What CalcDistAzimuth leaves, in the signed print form (a blank or "-" in front).
struct DistAzimuthTexts {
    Text DistText;    ///< whole kilometres, or "-1" where a locator failed its check
    Text LonText;     ///< the Target's longitude, positive towards the WEST: "-4.041667"
    Text LatText;     ///< the Target's latitude: " 50.9375"
    Text AzimuthText; ///< whole degrees, cut and not rounded: " 291"
};

/// The centre of a checked 6-character locator (field in upper case, subsquare in lower case).
WestPositivePoint pointOf(TextView checkedLocator);

/// Great circle by the spherical law of cosines in single precision: each named step is evaluated
/// in double and stored as single. That costs up to 2.6 km below 20 km and decides the last digit
/// that is shown, so it stays.
///
/// Special cases: points exactly a quarter of a circle apart (cosd is 0) give 0 km, because the
/// division that finds the angle fails and leaves it at 0; the same point and antipodes give
/// azimuth 0. Never NaN.
GreatCircle greatCircle(WestPositivePoint home, WestPositivePoint target);

/// Distance and azimuth from `HomeLoc` to `TargetLoc`, each completed and checked first (Home
/// before Target; see geodesy/locator_check.h).
///
/// The distance is rounded to tenths and then cut, so it shows the next kilometre from a fraction
/// of 0.95 on: 123.94 is 123, 123.95 is 124. On a locator that fails its check `texts.DistText`
/// becomes "-1" and the other texts are left as they were.
void CalcDistAzimuth(TextView HomeLoc, TextView TargetLoc, DistAzimuthTexts& texts);

} // namespace orbisgrid
