#include "geodesy/great_circle.h"

#include "core/locator_grid.h"
#include "geodesy/locator_check.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace orbisgrid {

namespace {

constexpr float pi = 3.14159274f; // pi as a single
constexpr auto rad = static_cast<float>(static_cast<double>(pi) / 180);

/// A statute mile has 1.609 km. With 1.601 the miles of a new report compare with those of the
/// reports that people have kept.
constexpr double kilometresPerMile = 1.601;

/// Every step is stored as single; the digits shown depend on it.
float single(double value) {
    return static_cast<float>(value);
}

/// An angle's sine and cosine as the steps below want them: the library's doubles, stored single.
struct Trigonometry {
    explicit Trigonometry(float degrees)
        : radians(single(static_cast<double>(degrees) * rad))
        , sine(single(std::sin(static_cast<double>(radians))))
        , cosine(single(std::cos(static_cast<double>(radians)))) {}

    float radians;
    float sine, cosine;
};

/// Central angle in radians, 0 to pi.
float centralAngle(double s, double cosd) {
    // cosd 0 is a division by zero: that step is skipped and the angle keeps the 0 it starts with.
    float d = 0;
    if (cosd != 0)
        d = single(std::atan(s / cosd));
    if (cosd < 0)
        d = single(static_cast<double>(d) + pi);
    return d;
}

/// What decides the azimuth.
struct Course {
    double t; ///< its cosine
    double w; ///< the sine of the difference of longitudes: negative where the target lies west
};

float azimuth(Course course) {
    const float u = single(std::sqrt(1 - course.t * course.t));
    // t 0: the quotient is infinite, the angle 90.
    float az = single(std::atan(u / std::fabs(course.t)) / rad);
    if (course.w < 0)
        az = -az;
    if (course.t < 0)
        az = single(180.0 - az);
    if (az < 0)
        az = single(az + 360.0);
    if (az >= 360)
        az = single(az - 360.0);
    return az;
}

} // namespace

GreatCircle greatCircle(Position from, Position to) {
    const float latH = single(from.latitude), latT = single(to.latitude);
    // Longitudes count towards the west in here.
    const float lonWh = single(-from.longitude), lonWt = single(-to.longitude);
    const Trigonometry H(latH), T(latT);
    const double lonWh_r = single(static_cast<double>(lonWh) * rad);
    const double lonWt_r = single(static_cast<double>(lonWt) * rad);
    const double sinH = H.sine, cosH = H.cosine, sinT = T.sine, cosT = T.cosine;

    float cosd =
        std::clamp(single(sinH * sinT + cosH * cosT * std::cos(lonWt_r - lonWh_r)), -1.0f, 1.0f);
    if (lonWh == lonWt && latH == latT)
        cosd = 1; // identical locators are 0 km apart, whatever the sum rounds to
    const float s = single(std::sqrt(1 - static_cast<double>(cosd) * cosd));
    const float kilometres = single(earthRadius * centralAngle(s, cosd));
    if (s == 0)
        return {kilometres, 0}; // same point or antipodes: no direction, 0 is shown

    const float t = std::clamp(single((sinT - sinH * cosd) / (s * cosH)), -1.0f, 1.0f);
    const float w = single(std::sin(lonWh_r - lonWt_r));
    return {kilometres, azimuth({t, w})};
}

Position pointOf(TextView checkedLocator) {
    const int a = checkedLocator[0] - 65, b = checkedLocator[2] - 48, c = checkedLocator[4] - 97;
    const int a2 = checkedLocator[1] - 65, b2 = checkedLocator[3] - 48, c2 = checkedLocator[5] - 97;
    constexpr double halfColumn = 0.5 / subsquaresPerDegreeLongitude;
    constexpr double halfRow = 0.5 / subsquaresPerDegreeLatitude;
    // Towards the west and in this order: the last digit of the Target's position comes from it.
    const float lonW = single(180.0 - fieldLongitude * a - squareLongitude * b -
                              c / subsquaresPerDegreeLongitude - halfColumn);
    const float lat = single(fieldLatitude * a2 - 90 + squareLatitude * b2 +
                             c2 / subsquaresPerDegreeLatitude + halfRow);
    return {lat, -lonW};
}

std::optional<LocatorPath> pathBetween(LocatorPair locators) {
    const auto home = checkedHome(locators.home);
    const auto target = home ? checkedTarget(locators.target) : std::nullopt;
    if (!target)
        return std::nullopt;
    const Position from = pointOf(*home);
    const Position to = pointOf(*target);
    return LocatorPath{from, to, greatCircle(from, to)};
}

LongPath longPath(GreatCircle shortPath) {
    constexpr double circumference = 2 * std::numbers::pi * earthRadius;
    const double azimuth = static_cast<double>(shortPath.azimuth) + 180;
    return {circumference - shortPath.kilometres, azimuth >= 360 ? azimuth - 360 : azimuth};
}

double shownKilometres(double kilometres) {
    const double tenths = std::floor(kilometres * 10 + 0.5);
    return std::floor(tenths / 10);
}

double shownMiles(double shownKilometres) {
    return std::floor(shownKilometres / kilometresPerMile);
}

double shownAzimuth(double azimuth) {
    return std::floor(azimuth);
}

} // namespace orbisgrid
