#include "core/long_maidenhead.h"
#include "core/number_text.h"
#include "fuzz/oracle.h"

#include <cmath>

namespace orbisgrid::fuzz {

namespace {

constexpr TextView kinds = u"AA00AA00AA";
constexpr TextView padding = u"????LL55AA";

/// A locator of one, three or five more pairs: an odd length gets its pair's character once.
Text padded(const Text& text) {
    Text locator = text;
    while (locator.size() >= 4 && locator.size() < padding.size())
        locator += padding[locator.size()];
    return locator;
}

bool isWellFormed(const Text& locator) {
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        const char16_t last = kinds[i] == u'A' ? u'Z' : u'9';
        if (i >= locator.size() || locator[i] < kinds[i] || locator[i] > last)
            return false;
    }
    return true;
}

/// The corner along one axis in whole units of the smallest cell.
double corner(const Text& locator, std::size_t first, double unitsPerDegree, double start) {
    constexpr int units[] = {57600, 5760, 240, 24, 1};
    int sum = 0;
    for (std::size_t pair = 0; pair < 5; ++pair)
        sum += (locator[2 * pair + first] - kinds[2 * pair]) * units[pair];
    return sum / unitsPerDegree + start;
}

} // namespace

} // namespace orbisgrid::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace orbisgrid;
    const Text text = fromUtf8(fuzz::bytesOf(data, size));
    Text locator = text;
    const auto position = LongMaiden2Coordinates(locator);
    fuzz::require(locator == fuzz::padded(text), "padding in place");
    fuzz::require(position.has_value() == fuzz::isWellFormed(locator), "format");
    if (position) {
        // The seventh digit of a number from 100 on, and two singles.
        constexpr double most = 0.00005 + 0x1p-15;
        fuzz::require(std::fabs(leadingNumber(position->LonText) -
                                fuzz::corner(locator, 0, 2880, -180)) <= most,
                      "longitude");
        fuzz::require(std::fabs(leadingNumber(position->LatText) -
                                fuzz::corner(locator, 1, 5760, -90)) <= most,
                      "latitude");
    }
    return 0;
}
