#include "core/maidenhead.h"

#include "core/angles.h"
#include "core/locator_grid.h"
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

/// Upper-cases and completes a locator in place.
void complete(Text& locator) {
    locator = completedTo(locatorLength, upperCase(locator));
}

/// The codes of a locator's first six characters, which must be there.
LocatorCodes codesOf(TextView locator) {
    LocatorCodes codes{};
    std::copy_n(locator.begin(), locatorLength, codes.begin());
    return codes;
}

/// Position of a subsquare's centre. 64.5 is "A" less one half: it adds half a subsquare.
Position centreOfCodes(const LocatorCodes& c) {
    return {(c[1] - 65) * fieldLatitude - 90 + (c[3] - 48) * squareLatitude +
                (c[5] - 64.5) / subsquaresPerDegreeLatitude,
            (c[0] - 65) * fieldLongitude - 180 + (c[2] - 48) * squareLongitude +
                (c[4] - 64.5) / subsquaresPerDegreeLongitude};
}

char16_t longitudeLetter(double longitude) {
    return longitude < 0 ? u'W' : u'E';
}

char16_t latitudeLetter(double latitude) {
    return latitude < 0 ? u'S' : u'N';
}

/// With the blank that stands in front of the letter.
Text dmsText(const Dms& dms, std::size_t degreeDigits) {
    Text text = wholeMask(dms.degrees, degreeDigits);
    text += u"°.";
    text += wholeMask(dms.minutes, 2);
    text += u"'.";
    text += wholeMask(dms.seconds, 2);
    text += u' ';
    return text;
}

/// The floor of `value`. Raises overflow where it does not fit 16 signed bits, or no longer does
/// once the code of "A" is added.
int fieldIndex(double value) {
    constexpr int largest = std::numeric_limits<std::int16_t>::max();
    constexpr int smallest = std::numeric_limits<std::int16_t>::min();
    if (!(value >= smallest && value < largest - 65 + 1))
        RuntimeError::raise(RuntimeError::overflow);
    // std::floor is a call into the library; a cast that corrects negative values is not.
    const int towardsZero = static_cast<int>(value);
    return value < towardsZero ? towardsZero - 1 : towardsZero;
}

/// Of a value that is not negative.
double fraction(double value) {
    return value - static_cast<int>(value);
}

} // namespace

Position centreOfSix(TextView locator) {
    return centreOfCodes(codesOf(locator));
}

LocatorPosition Maiden2World(Text& locator) {
    complete(locator);
    if (locator.size() < locatorLength)
        throw RuntimeError(RuntimeError::invalidProcedureCall);
    const Position centre = centreOfSix(locator);

    LocatorPosition result;
    // The texts come from the values before they become single: in many places, FN20 among them,
    // the seventh digit differs.
    result.LonText = plainTextOfSeven(centre.longitude);
    result.LatText = plainTextOfSeven(centre.latitude);
    result.LonText += longitudeLetter(centre.longitude);
    result.LatText += latitudeLetter(centre.latitude);
    result.position = {static_cast<float>(centre.latitude), static_cast<float>(centre.longitude)};
    return result;
}

LocatorPositionHMS Maiden2WorldHMS(Text& locator) {
    complete(locator);
    Text six = locator;
    six.resize(locatorLength); // a missing character counts as 0
    const Position position = centreOfSix(six);
    const double longitude = std::fabs(position.longitude);
    const double latitude = std::fabs(position.latitude);
    const char16_t eastWest = longitudeLetter(position.longitude);
    const char16_t northSouth = latitudeLetter(position.latitude);

    LocatorPositionHMS result;
    result.LonText = plainText(longitude) + eastWest;
    result.LatText = plainText(latitude) + northSouth;
    const Dms lon = splitAngle<double>(longitude);
    Dms lat = splitAngle<double>(latitude);
    lat.seconds = wholeMaskValue(lat.seconds); // only here: the longitude keeps its fraction
    result.LonDeg = lon.degrees;
    result.LonMin = lon.minutes;
    result.LonSec = lon.seconds;
    result.LatDeg = lat.degrees;
    result.LatMin = lat.minutes;
    result.LatSec = lat.seconds;
    result.LonDmsText = dmsText(lon, 3) + eastWest;
    result.LatDmsText = dmsText(lat, 2) + northSouth;
    return result;
}

Text World2Grid(double& Longitude, double& Latitude) {
    Longitude = (Longitude + 180) / fieldLongitude;
    Latitude = (Latitude + 90) / fieldLatitude;
    const int a = fieldIndex(Longitude);
    const int b = fieldIndex(Latitude);
    Longitude = (Longitude - a) * squaresPerField;
    Latitude = (Latitude - b) * squaresPerField;
    // What is left is never negative, so a cast is its floor; nor is it ever more than 24.
    const int c = static_cast<int>(Longitude);
    const int d = static_cast<int>(Latitude);
    const int e = static_cast<int>((Longitude - c) * subsquaresPerSquare);
    const int f = static_cast<int>((Latitude - d) * subsquaresPerSquare);
    return {characterWithCode(a + 65), characterWithCode(b + 65), characterWithCode(c + 48),
            characterWithCode(d + 48), characterWithCode(e + 65), characterWithCode(f + 65)};
}

Text locatorOf(Position position) {
    return World2Grid(position.longitude, position.latitude);
}

Text locatorOf(Position position, std::size_t characters) {
    Text locator = World2Grid(position.longitude, position.latitude);
    // What is left counts in squares: first the place in the square, then that in its subsquare.
    double east = fraction(position.longitude) * subsquaresPerSquare;
    double north = fraction(position.latitude) * subsquaresPerSquare;
    while (locator.size() < characters) {
        const bool isSquare = locator.size() % 4 == 2;
        const int cells = isSquare ? squaresPerField : subsquaresPerSquare;
        east = fraction(east) * cells;
        north = fraction(north) * cells;
        const char16_t first = isSquare ? u'0' : u'A';
        locator += static_cast<char16_t>(first + static_cast<int>(east));
        locator += static_cast<char16_t>(first + static_cast<int>(north));
    }
    return locator;
}

// NOLINTNEXTLINE(bugprone-easily-swappable-parameters): the procedure is defined in this order
Text World2Maiden(double LongCo, double LatCo, int /*TypeConvert*/) {
    double x = (180 - LongCo) / fieldLongitude;
    double y = (LatCo + 90) / fieldLatitude;
    const double a = std::floor(x);
    const double b = std::floor(y);
    x = (x - a) * squaresPerField;
    y = (y - b) * squaresPerField;
    const double c = std::floor(x);
    const double d = std::floor(y);
    const double e = std::floor((x - c) * subsquaresPerSquare) + 65;
    const double f = std::floor((y - d) * subsquaresPerSquare) + 65;
    Text locator;
    for (const double code : {a + 65, b + 65, c + 48, d + 48, e, f})
        locator += characterWithCode(code);
    return locator[1] == u'S' ? Text() : locator;
}

} // namespace orbisgrid
