#include "core/long_maidenhead.h"

#include "core/angles.h"
#include "core/number_text.h"

#include <array>
#include <cmath>

namespace orbisgrid {

namespace {

constexpr std::size_t fullLength = 10;

/// One test a length, each applied once, in this order: what a shorter locator is completed with.
void pad(Text& locator) {
    constexpr std::array<std::pair<std::size_t, char16_t>, 6> padding{
        {{4, u'L'}, {5, u'L'}, {6, u'5'}, {7, u'5'}, {8, u'A'}, {9, u'A'}}};
    for (const auto& [length, character] : padding) {
        if (locator.size() == length)
            locator += character;
    }
}

/// Field, subsquare and extended subsquare are letters, the two squares digits.
bool isLetterPosition(std::size_t index) {
    return (index / 2) % 2 == 0;
}

std::optional<std::array<double, fullLength>> cellIndices(TextView locator) {
    if (locator.size() < fullLength)
        return std::nullopt;
    std::array<double, fullLength> indices{};
    for (std::size_t i = 0; i < fullLength; ++i) {
        const char16_t first = isLetterPosition(i) ? u'A' : u'0';
        const char16_t last = isLetterPosition(i) ? u'Z' : u'9';
        if (locator[i] < first || locator[i] > last)
            return std::nullopt;
        indices.at(i) = locator[i] - first;
    }
    return indices;
}

/// Both characters of a pair, rounded while the values still hold their fractions.
void appendPair(Text& locator, double lon, double lat, int firstCode) {
    locator += characterWithCode(std::nearbyint(lon + firstCode));
    locator += characterWithCode(std::nearbyint(lat + firstCode));
}

} // namespace

std::optional<ExtendedCorner> cornerOfTen(TextView locator) {
    const auto indices = cellIndices(locator);
    if (!indices)
        return std::nullopt;
    const auto& p = *indices;

    // Two stored singles a coordinate, the subsquare's border and the corner's own; the seventh
    // digit of the texts depends on the rounding between them.
    const auto west = static_cast<float>((((p[4] / 24) + p[2]) / 10 + p[0]) * 20 - 180);
    const auto longitude = static_cast<float>(west + ((p[8] / 24) + p[6]) / 10 / 12);
    const auto south = static_cast<float>((((p[5] / 24) + p[3]) / 10 + p[1]) * 10 - 90);
    const auto latitude = static_cast<float>(south + ((p[9] / 24) + p[7]) / 10 / 24);
    return ExtendedCorner{longitude, latitude};
}

std::optional<ExtendedPosition> LongMaiden2Coordinates(Text& strLongMaiden) {
    pad(strLongMaiden);
    const auto corner = cornerOfTen(strLongMaiden);
    if (!corner)
        return std::nullopt;
    return ExtendedPosition{printText(corner->longitude), printText(corner->latitude)};
}

Text Coordinates2LongMaiden(double& E_Lon, double& N_Lat) {
    // Guards against values just below the border of a cell.
    constexpr double nudge = 0.0000001;
    E_Lon = (E_Lon + 180) / 20 + nudge;
    N_Lat = (N_Lat + 90) / 10 + nudge;

    Text locator;
    appendPair(locator, E_Lon, N_Lat, 65);
    for (const int cells : {10, 24, 10, 24}) {
        E_Lon = (E_Lon - Floor(E_Lon)) * cells;
        N_Lat = (N_Lat - Floor(N_Lat)) * cells;
        appendPair(locator, E_Lon, N_Lat, cells == 10 ? 48 : 65);
    }
    return locator;
}

} // namespace orbisgrid
