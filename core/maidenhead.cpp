#include "core/maidenhead.h"

#include "core/number_text.h"
#include "core/runtime_error.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>

namespace orbisgrid {

namespace {

constexpr std::size_t locatorLength = 6;
using LocatorCodes = std::array<double, locatorLength>;

struct Position {
    double longitude;
    double latitude;
};

void complete(Text& locator) {
    locator = upperCase(locator);
    if (locator.size() == 4)
        locator += u"LL";
    if (locator.size() == 5)
        locator += u'L';
}

/// The codes of a locator's first six characters, which must be there.
LocatorCodes codesOf(TextView locator) {
    LocatorCodes codes{};
    std::copy_n(locator.begin(), locatorLength, codes.begin());
    return codes;
}

/// Position of a subsquare's centre. 64.5 is "A" less one half: it adds half a subsquare.
Position centreOf(const LocatorCodes& c) {
    return {(c[0] - 65) * 20 - 180 + (c[2] - 48) * 2 + (c[4] - 64.5) / 12,
            (c[1] - 65) * 10 - 90 + (c[3] - 48) + (c[5] - 64.5) / 24};
}

char16_t longitudeLetter(double longitude) {
    return longitude < 0 ? u'W' : u'E';
}

char16_t latitudeLetter(double latitude) {
    return latitude < 0 ? u'S' : u'N';
}

struct Dms {
    double degrees, minutes, seconds;
};

Dms split(double magnitude) {
    const double degrees = std::floor(magnitude);
    const double m = (magnitude - degrees) * 60;
    return {degrees, std::floor(m), (m - std::floor(m)) * 60};
}

Text dmsText(const Dms& dms, std::size_t degreeDigits, char16_t letter) {
    Text text = wholeMask(dms.degrees, degreeDigits);
    text += u"°.";
    text += wholeMask(dms.minutes, 2);
    text += u"'.";
    text += wholeMask(dms.seconds, 2);
    text += u' ';
    text += letter;
    return text;
}

/// floor() as the 16-bit index it is stored in, which overflows as 16-bit numbers do, with the code
/// of "A" added as well.
int fieldIndex(double value) {
    constexpr int largest = std::numeric_limits<std::int16_t>::max();
    constexpr int smallest = std::numeric_limits<std::int16_t>::min();
    if (!(value >= smallest && value < largest - 65 + 1))
        RuntimeError::raise(RuntimeError::overflow);
    // In this range a cast and a step back are floor(), without the call that it takes.
    const int towardsZero = static_cast<int>(value);
    return value < towardsZero ? towardsZero - 1 : towardsZero;
}

} // namespace

LocatorPosition Maiden2World(Text& locator) {
    complete(locator);
    if (locator.size() < locatorLength)
        throw RuntimeError(RuntimeError::invalidProcedureCall);
    const Position position = centreOf(codesOf(locator));

    LocatorPosition result;
    // The texts come from the values before they become single: in many places, FN20 among them,
    // the seventh digit differs.
    result.LonText = plainTextOfSeven(position.longitude);
    result.LatText = plainTextOfSeven(position.latitude);
    result.longitude = static_cast<float>(position.longitude);
    result.latitude = static_cast<float>(position.latitude);
    result.LonText += longitudeLetter(position.longitude);
    result.LatText += latitudeLetter(position.latitude);
    return result;
}

LocatorPositionHMS Maiden2WorldHMS(Text& locator) {
    complete(locator);
    Text six = locator;
    six.resize(locatorLength); // a missing character counts as 0
    const Position position = centreOf(codesOf(six));
    const double longitude = std::fabs(position.longitude);
    const double latitude = std::fabs(position.latitude);
    const char16_t eastWest = longitudeLetter(position.longitude);
    const char16_t northSouth = latitudeLetter(position.latitude);

    LocatorPositionHMS result;
    result.LonText = plainText(longitude) + eastWest;
    result.LatText = plainText(latitude) + northSouth;
    const Dms lon = split(longitude);
    Dms lat = split(latitude);
    lat.seconds = wholeMaskValue(lat.seconds); // only here: the longitude keeps its fraction
    result.LonDeg = lon.degrees;
    result.LonMin = lon.minutes;
    result.LonSec = lon.seconds;
    result.LatDeg = lat.degrees;
    result.LatMin = lat.minutes;
    result.LatSec = lat.seconds;
    result.LonDmsText = dmsText(lon, 3, eastWest);
    result.LatDmsText = dmsText(lat, 2, northSouth);
    return result;
}

Text World2Grid(double& Longitude, double& Latitude) {
    Longitude = (Longitude + 180) / 20;
    Latitude = (Latitude + 90) / 10;
    const int a = fieldIndex(Longitude);
    const int b = fieldIndex(Latitude);
    Longitude = (Longitude - a) * 10;
    Latitude = (Latitude - b) * 10;
    // What a floor leaves is 0 to 1: its cells are never negative, which makes a cast their floor,
    // and never more than 24, which nothing overflows with.
    const int c = static_cast<int>(Longitude);
    const int d = static_cast<int>(Latitude);
    const int e = static_cast<int>((Longitude - c) * 24);
    const int f = static_cast<int>((Latitude - d) * 24);
    return {characterWithCode(a + 65), characterWithCode(b + 65), characterWithCode(c + 48),
            characterWithCode(d + 48), characterWithCode(e + 65), characterWithCode(f + 65)};
}

Text World2Maiden(double LongCo, double LatCo, int /*TypeConvert*/) {
    double x = (180 - LongCo) / 20;
    double y = (LatCo + 90) / 10;
    const double a = std::floor(x);
    const double b = std::floor(y);
    x = (x - a) * 10;
    y = (y - b) * 10;
    const double c = std::floor(x);
    const double d = std::floor(y);
    const double e = std::floor((x - c) * 24) + 65;
    const double f = std::floor((y - d) * 24) + 65;
    Text locator;
    for (const double code : {a + 65, b + 65, c + 48, d + 48, e, f})
        locator += characterWithCode(code);
    return locator[1] == u'S' ? Text() : locator;
}

} // namespace orbisgrid
