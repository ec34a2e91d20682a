#include "benchmarks/cases.h"

#include "core/maidenhead.h"
#include "core/number_text.h"

#include <cmath>
#include <random>

namespace orbisgrid::bench {

namespace {

/// The cell of a position along one axis, 0 to 1,036,799, from its west or south end.
int cellOf(double degrees, double start, double cellsPerDegree) {
    return static_cast<int>(std::floor((degrees - start) * cellsPerDegree));
}

Text tenCharacters(int x, int y) {
    Text locator;
    constexpr int units[] = {57600, 5760, 240, 24, 1};
    constexpr int counts[] = {18, 10, 24, 10, 24};
    for (std::size_t i = 0; i < 5; ++i) {
        const int first = counts[i] == 10 ? u'0' : u'A';
        locator += static_cast<char16_t>(first + x / units[i] % counts[i]);
        locator += static_cast<char16_t>(first + y / units[i] % counts[i]);
    }
    return locator;
}

Case caseAt(Position position) {
    const auto [latitude, longitude] = position;
    Case result{position, {}, {}, {}, {}, {}, {}};
    result.ten = tenCharacters(cellOf(longitude, -180, 2880), cellOf(latitude, -90, 5760));
    result.six = result.ten.substr(0, 6);
    result.narrowSix = toUtf8(result.six);
    result.narrowTen = toUtf8(result.ten);
    result.decLong = plainText(static_cast<float>(longitude)).substr(0, 10);
    result.decLat = plainText(static_cast<float>(latitude)).substr(0, 11);
    return result;
}

std::vector<Case> randomCases() {
    std::mt19937_64 random(4096);
    const auto between = [&](double low, double high) {
        return low + (high - low) * static_cast<double>(random() >> 11U) * 0x1p-53;
    };
    std::vector<Case> result;
    for (std::size_t i = 0; i < caseCount; ++i) {
        const double longitude = between(-180, 180);
        result.push_back(caseAt({between(-90, 90), longitude}));
    }
    return result;
}

} // namespace

const std::vector<Case>& cases() {
    static const std::vector<Case> all = randomCases();
    return all;
}

const Case& partnerOf(std::size_t index) {
    return cases()[(index + 1777) % caseCount];
}

std::vector<Check>& checks() {
    static std::vector<Check> all;
    return all;
}

std::vector<Goal>& goals() {
    static std::vector<Goal> all;
    return all;
}

} // namespace orbisgrid::bench
