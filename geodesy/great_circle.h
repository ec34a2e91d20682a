#pragma once

#include "core/position.h"
#include "core/text.h"

#include <optional>

namespace orbisgrid {

/// The way from one place to another along a great circle.
struct GreatCircle {
    float kilometres{}; ///< on a sphere of 6367 km
    float azimuth{};    ///< at the first place: degrees from north over east, 0 up to 360
};

/// Two locators as they were typed.
struct LocatorPair {
    TextView home, target;
};

/// What there is between two locators.
struct LocatorPath {
    Position home;   ///< the centre of its subsquare, stored as singles
    Position target; ///< likewise
    GreatCircle circle;
};

/// Kilometres, the sphere of all distances: it lies halfway between the radius at the equator
/// (6378.1) and at the poles (6356.8).
inline constexpr double earthRadius = 6367;

/// Great circle by the spherical law of cosines in single precision: each named step is evaluated
/// in double and stored as single, the arguments as well. That costs up to 2.6 km below 5 km and
/// close to the antipodes, and decides the last digit that is shown.
///
/// Special cases: points exactly a quarter of a circle apart give 0 km, because the division that
/// finds the angle fails and leaves it at 0; the same point and antipodes give azimuth 0. Never NaN
/// within the world.
[[nodiscard]] GreatCircle greatCircle(Position from, Position to);

/// The centre of a checked 6-character locator (field in upper case, subsquare in lower case),
/// stored as singles.
[[nodiscard]] Position pointOf(TextView checkedLocator);

/// Distance and azimuth from Home to Target, each completed and checked first, Home before Target
/// (see geodesy/locator_check.h). Result: nothing where one of them fails its check.
[[nodiscard]] std::optional<LocatorPath> pathBetween(LocatorPair locators);

/// The other way round between the same two places.
struct LongPath {
    double kilometres{}; ///< the circumference of the sphere less the distance
    double azimuth{};    ///< 180 degrees away from that of the short path: 0 up to 360
};

[[nodiscard]] LongPath longPath(GreatCircle shortPath);

/// Kilometres as they are shown: rounded to tenths and then cut, so that the next one shows from a
/// fraction of 0.95 on. 123.94 is 123, 123.95 is 124.
[[nodiscard]] double shownKilometres(double kilometres);

/// Miles as they are shown: cut. `shownKilometres` are whole; there are 1.601 to a mile.
[[nodiscard]] double shownMiles(double shownKilometres);

/// An azimuth as it is shown: whole degrees, cut. 291.9 is 291.
[[nodiscard]] double shownAzimuth(double azimuth);

} // namespace orbisgrid
