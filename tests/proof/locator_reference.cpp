#include "tests/proof/locator_reference.h"

#include <cstdio>

namespace orbisgrid::test {

namespace {

char16_t letter(int index) {
    return static_cast<char16_t>(u'A' + index);
}

char16_t digit(int index) {
    return static_cast<char16_t>(u'0' + index);
}

template <std::size_t count>
Text interleaved(const std::array<char16_t, count>& longitude,
                 const std::array<char16_t, count>& latitude) {
    Text locator;
    for (std::size_t i = 0; i < count; ++i) {
        locator += longitude[i];
        locator += latitude[i];
    }
    return locator;
}

} // namespace

std::array<char16_t, 3> charactersOfSix(int cell) {
    return {letter(cell / 240), digit(cell / 24 % 10), letter(cell % 24)};
}

std::array<char16_t, 5> charactersOfTen(int cell) {
    const auto six = charactersOfSix(cell / 240);
    return {six[0], six[1], six[2], digit(cell / 24 % 10), letter(cell % 24)};
}

int cellOfSix(char16_t field, char16_t square, char16_t subsquare) {
    return ((field - u'A') * 10 + (square - u'0')) * 24 + (subsquare - u'A');
}

Text locatorOfSix(int longitudeCell, int latitudeCell) {
    return interleaved(charactersOfSix(longitudeCell), charactersOfSix(latitudeCell));
}

Text locatorOfTen(int longitudeCell, int latitudeCell) {
    return interleaved(charactersOfTen(longitudeCell), charactersOfTen(latitudeCell));
}

long double centreOfSix(const Axis& axis, int cell) {
    return (2 * cell + 1) / (2.0L * axis.cellsPerDegree) + axis.start;
}

std::string sevenDigits(double value) {
    std::array<char, 64> buffer{};
    std::snprintf(buffer.data(), buffer.size(), "%.7g", value);
    return buffer.data();
}

} // namespace orbisgrid::test
