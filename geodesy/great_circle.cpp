#include "geodesy/great_circle.h"

#include "core/number_text.h"
#include "geodesy/locator_check.h"

#include <algorithm>
#include <cmath>

namespace orbisgrid {

namespace {

constexpr float pi = 3.14159274f; // pi as a single
constexpr auto rad = static_cast<float>(static_cast<double>(pi) / 180);
constexpr double earthRadius = 6367; // km

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

float azimuth(double t, double w) {
    const float u = single(std::sqrt(1 - t * t));
    float az = single(std::atan(u / std::fabs(t)) / rad); // t 0: the quotient is infinite, az is 90
    if (w < 0)
        az = -az;
    if (t < 0)
        az = single(180.0 - az);
    if (az < 0)
        az = single(az + 360.0);
    if (az >= 360)
        az = single(az - 360.0);
    return az;
}

} // namespace

WestPositivePoint pointOf(TextView checkedLocator) {
    const int a = checkedLocator[0] - 65, b = checkedLocator[2] - 48, c = checkedLocator[4] - 97;
    const int a2 = checkedLocator[1] - 65, b2 = checkedLocator[3] - 48, c2 = checkedLocator[5] - 97;
    return {single(180.0 - 20.0 * a - 2.0 * b - c / 12.0 - 1 / 24.0),
            single(10.0 * a2 - 90 + b2 + c2 / 24.0 + 1 / 48.0)};
}

GreatCircle greatCircle(WestPositivePoint home, WestPositivePoint target) {
    const Trigonometry H(home.lat), T(target.lat);
    const double lonWh_r = single(static_cast<double>(home.lonW) * rad);
    const double lonWt_r = single(static_cast<double>(target.lonW) * rad);
    const double sinH = H.sine, cosH = H.cosine, sinT = T.sine, cosT = T.cosine;

    float cosd =
        std::clamp(single(sinH * sinT + cosH * cosT * std::cos(lonWt_r - lonWh_r)), -1.0f, 1.0f);
    if (home.lonW == target.lonW && home.lat == target.lat)
        cosd = 1; // identical locators are 0 km apart, whatever the sum rounds to
    const float s = single(std::sqrt(1 - static_cast<double>(cosd) * cosd));
    const float dist = single(earthRadius * centralAngle(s, cosd));
    if (s == 0)
        return {dist, 0}; // same point or antipodes: no direction, 0 is shown

    const float t = std::clamp(single((sinT - sinH * cosd) / (s * cosH)), -1.0f, 1.0f);
    const float w = single(std::sin(lonWh_r - lonWt_r));
    return {dist, azimuth(t, w)};
}

void CalcDistAzimuth(TextView HomeLoc, TextView TargetLoc, DistAzimuthTexts& texts) {
    const auto home = checkedHome(HomeLoc);
    const auto target = home ? checkedTarget(TargetLoc) : std::nullopt;
    if (!target) {
        texts.DistText = u"-1";
        return;
    }
    const WestPositivePoint targetPoint = pointOf(*target);
    const GreatCircle circle = greatCircle(pointOf(*home), targetPoint);
    const double tenths = std::floor(static_cast<double>(circle.dist) * 10 + 0.5);
    texts.DistText = printText(std::floor(tenths / 10));
    texts.LonText = printText(targetPoint.lonW);
    texts.LatText = printText(targetPoint.lat);
    texts.AzimuthText = printText(std::floor(circle.az));
}

} // namespace orbisgrid
