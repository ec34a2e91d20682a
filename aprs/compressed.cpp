#include "aprs/compressed.h"

#include "core/number_text.h"
#include "core/runtime_error.h"

#include <cmath>
#include <cstdint>

namespace orbisgrid {

namespace {

constexpr double longitudeScale = 190463; // units a degree, from 180 west
constexpr double latitudeScale = 380926;  // units a degree, from 90 north
constexpr std::int32_t cube91 = 91 * 91 * 91;
constexpr std::int32_t square91 = 91 * 91;
constexpr int firstCode = 33;
constexpr TextView prefix = u"=/";
constexpr TextView trailer = u"-  B";

std::int32_t toInt32(double value) {
    const auto whole = nearestInt32(value);
    if (!whole)
        throw RuntimeError(RuntimeError::overflow);
    return *whole;
}

/// Four base-91 characters. Quotients are cut and remainders keep the sign of the value: outside
/// the world they leave the printable characters or raise.
void appendGroup(Text& text, double value) {
    const std::int32_t belowCube = toInt32(value) % cube91;
    const std::int32_t belowSquare = belowCube % square91;
    const auto append = [&text](std::int32_t digit) {
        text += characterWithCode(digit + firstCode);
    };
    text += characterWithCode(std::trunc(value / cube91) + firstCode);
    append(belowCube / square91);
    append(belowSquare / 91);
    append(belowSquare % 91);
}

} // namespace

Text compressedText(Position position) {
    const double X = std::floor((position.longitude + 180) * longitudeScale);
    const auto Y = static_cast<float>((90 - position.latitude) * latitudeScale);
    Text text;
    text.reserve(14);
    text += prefix;
    appendGroup(text, Y);
    appendGroup(text, X);
    text += trailer;
    return text;
}

} // namespace orbisgrid
