#include "aprs/uiview.h"
#include "core/number_text.h"
#include "fuzz/oracle.h"

#include <cmath>

namespace orbisgrid::fuzz {

namespace {

/// Places count from 1, and one that is not there is a character that means nothing.
Text part(const Text& text, std::size_t first, std::size_t count) {
    Text result;
    for (std::size_t place = first; place < first + count; ++place) {
        if (place >= 1 && place <= text.size())
            result += text[place - 1];
    }
    return result;
}

double degreesOf(const Text& text, std::size_t degrees, std::size_t digits) {
    return leadingNumber(part(text, degrees, digits)) +
           (leadingNumber(part(text, degrees + digits + 3, 3)) / 3600 +
            leadingNumber(part(text, degrees + digits, 2)) / 60);
}

bool endsWith(const Text& field, char16_t letter) {
    return !field.empty() && field.back() == letter;
}

/// With a prefix in front of it every text has its fields at the same places.
void compareReading(const Text& text) {
    const auto read = readUIViewText(text);
    require(read.has_value() == (text.size() >= 10), "shortest text");
    if (!read)
        return;
    const bool hasPrefix = !(u'1' <= text[0] && text[0] <= u'9');
    const Text whole = hasPrefix ? text : u'=' + text;
    const bool isSouth = endsWith(part(whole, 7, 3), u'S');
    const bool isWest = endsWith(part(whole, 17, 3), u'W');
    require(read->isSouth == isSouth && read->isWest == isWest, "letters");
    const double latitude = degreesOf(whole, 2, 2);
    const double longitude = degreesOf(whole, 11, 3);
    require(read->position.latitude == static_cast<float>(isSouth ? -latitude : latitude),
            "latitude");
    require(read->position.longitude == static_cast<float>(isWest ? -longitude : longitude),
            "longitude");
}

/// What was read, spread into whole fields, is written and read again as the same position.
void writeAndRead(const Text& text) {
    const auto read = readUIViewText(text);
    if (!read || std::fabs(read->position.latitude) >= 99 ||
        std::fabs(read->position.longitude) >= 999)
        return;
    const Position position = read->position;
    const auto lat = WorldDMS(plainText(static_cast<float>(position.latitude)));
    const auto lon = WorldDMS(plainText(static_cast<float>(position.longitude)));
    const Text written =
        uiViewText(*lat, lat->isNegative ? u"S" : u"N", *lon, lon->isNegative ? u"W" : u"E");
    require(written.size() == 19, "its length");
    const auto again = readUIViewText(written);
    // Half a second, and what two singles and the seventh digit cost: more from 100 degrees on.
    const double second = 1 / 3600.0;
    require(again && std::fabs(again->position.latitude - position.latitude) < 0.56 * second,
            "latitude there and back");
    require(std::fabs(again->position.longitude - position.longitude) < 0.7 * second,
            "longitude there and back");
}

} // namespace

} // namespace orbisgrid::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const orbisgrid::Text text = orbisgrid::fromUtf8(orbisgrid::fuzz::bytesOf(data, size));
    orbisgrid::fuzz::compareReading(text);
    orbisgrid::fuzz::writeAndRead(text);
    return 0;
}
