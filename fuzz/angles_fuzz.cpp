#include "core/angles.h"
#include "core/number_text.h"
#include "core/runtime_error.h"
#include "fuzz/oracle.h"

#include <cmath>
#include <optional>

namespace orbisgrid::fuzz {

namespace {

/// The angle by cutting the text at its signs, instead of by positions and lengths.
std::optional<double> byCutting(Text text) {
    for (char16_t& character : text)
        character = character == u'~' ? u'°' : character;
    const std::size_t degree = text.find(u'°');
    const std::size_t minute = text.find(u'\'');
    if (degree == Text::npos || minute == Text::npos || minute < degree + 2 ||
        text.size() - minute < 3)
        return std::nullopt;
    const Text degrees = text.substr(0, degree);
    // The blank behind each sign is passed over, whatever stands there. The last character of the
    // minutes is the one in front of their sign.
    const Text minutes = text.substr(degree + 2, minute - degree - 2);
    const Text seconds = text.substr(minute + 2, text.size() - minute - 3);
    return leadingNumber(minutes) / 60 + leadingNumber(degrees) + leadingNumber(seconds) / 3600;
}

bool isSame(double one, double other) {
    return one == other || (std::isnan(one) && std::isnan(other));
}

void compareReading(const Text& text) {
    Text argument = text;
    std::optional<double> angle;
    try {
        angle = Convert_Decimal(argument);
    } catch (const RuntimeError& error) {
        require(error.code() == RuntimeError::invalidProcedureCall, "which error");
    }
    const auto expected = byCutting(text);
    require(angle.has_value() == expected.has_value(), "format");
    require(!angle || isSame(*angle, *expected), "angle");
    require(argument == replaced(text, {u'~', u'°'}), "argument afterwards");
}

/// A written angle reads back to within half a second (a negative one has no sign handling).
void writeAndRead(double value) {
    const auto angle = static_cast<float>(value);
    if (!(angle >= 0 && angle < 1000))
        return;
    Text text = Convert_Degree(angle);
    require(std::fabs(Convert_Decimal(text) - static_cast<double>(angle)) <= 0.6 / 3600,
            "there and back");
}

} // namespace

} // namespace orbisgrid::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const orbisgrid::Text text = orbisgrid::fromUtf8(orbisgrid::fuzz::bytesOf(data, size));
    orbisgrid::fuzz::compareReading(text);
    orbisgrid::fuzz::writeAndRead(orbisgrid::leadingNumber(text));
    return 0;
}
