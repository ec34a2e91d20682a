#include "core/maidenhead.h"
#include "core/runtime_error.h"
#include "fuzz/oracle.h"
#include "geodesy/great_circle.h"
#include "geodesy/locator_check.h"

#include <cmath>

namespace orbisgrid::fuzz {

namespace {

/// The centre in whole 48ths (24ths) of a degree: no formula of the program's.
Position centreByWholeNumbers(const Text& six) {
    const int x = (six[0] - 65) * 480 + (six[2] - 48) * 48 + (six[4] - 65) * 2 + 1;
    const int y = (six[1] - 65) * 480 + (six[3] - 48) * 48 + (six[5] - 65) * 2 + 1;
    return {y / 48.0 - 90, x / 24.0 - 180};
}

Text completed(const Text& text) {
    Text locator = upperCase(text);
    if (locator.size() == 4 || locator.size() == 5)
        locator.append(6 - locator.size(), u'L');
    return locator;
}

bool isIn(char16_t character, char16_t first, char16_t last) {
    return first <= character && character <= last;
}

/// By the letters themselves, in upper or lower case, where the program compares codes.
bool isLocator(const Text& six) {
    const Text upper = upperCase(six);
    bool isAscii = true;
    for (const char16_t character : six)
        isAscii = isAscii && character < 0x80;
    return isAscii && isIn(upper[0], u'A', u'R') && isIn(upper[1], u'A', u'S') &&
           isIn(upper[2], u'0', u'9') && isIn(upper[3], u'0', u'9') && isIn(upper[4], u'A', u'X') &&
           isIn(upper[5], u'A', u'X');
}

void compareDecoding(const Text& text) {
    Text locator = text;
    bool isRaised = false;
    LocatorPosition decoded;
    try {
        decoded = Maiden2World(locator);
    } catch (const RuntimeError& error) {
        isRaised = error.code() == RuntimeError::invalidProcedureCall;
    }
    require(isRaised == (text.size() < 4), "raises below four characters");
    require(locator == completed(text), "completion in place");
    if (isRaised)
        return;
    const Position centre = centreByWholeNumbers(locator);
    const auto tolerance = [](double value) { return std::fabs(value) * 0x1p-23 + 1e-9; };
    require(
        std::fabs(decoded.position.longitude - centre.longitude) <= tolerance(centre.longitude) &&
            std::fabs(decoded.position.latitude - centre.latitude) <= tolerance(centre.latitude),
        "position");
    require(decoded.LonText.ends_with(centre.longitude < 0 ? u'W' : u'E') &&
                decoded.LatText.ends_with(centre.latitude < 0 ? u'S' : u'N'),
            "letters");
}

void compareCheck(const Text& text) {
    const auto home = checkedHome(text);
    const Text six = completed(text).substr(0, 6);
    const Text asTyped = text.size() < 6 ? six : text.substr(0, 6);
    require(home.has_value() == (text.size() >= 4 && isLocator(asTyped)), "locator check");
    if (!home)
        return;
    require(upperCase(*home) == upperCase(asTyped), "checked locator");
    const Position point = pointOf(*home);
    const Position centre = centreByWholeNumbers(upperCase(*home));
    require(std::fabs(point.longitude - centre.longitude) < 0.00001 &&
                std::fabs(point.latitude - centre.latitude) < 0.00001,
            "point");
    require(locatorOf(point) == upperCase(*home), "there and back");
}

} // namespace

} // namespace orbisgrid::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace orbisgrid;
    const Text text = fromUtf8(fuzz::bytesOf(data, size));
    fuzz::compareDecoding(text);
    fuzz::compareCheck(text);
    Text locator = text;
    Maiden2WorldHMS(locator); // never raises
    return 0;
}
