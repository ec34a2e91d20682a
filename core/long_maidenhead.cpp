#include "core/long_maidenhead.h"

#include "core/angles.h"
#include "core/locator_grid.h"
#include "core/number_text.h"

#include <array>
#include <cmath>
#include <utility>

namespace orbisgrid {

namespace {

constexpr std::size_t fullLength = 10;

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

} // namespace

std::optional<Position> cornerOfTen(TextView locator) {
    const auto indices = cellIndices(locator);
    if (!indices)
        return std::nullopt;
    const auto& p = *indices;

    // Two stored singles for each coordinate, the subsquare's border and the corner's own; the
    // seventh digit of the texts depends on the rounding between them.
    constexpr double subsquares = subsquaresPerSquare;
    constexpr double squares = squaresPerField;
    const auto west =
        static_cast<float>((((p[4] / subsquares) + p[2]) / squares + p[0]) * fieldLongitude - 180);
    const auto longitude = static_cast<float>(west + ((p[8] / subsquares) + p[6]) / squares /
                                                         subsquaresPerDegreeLongitude);
    const auto south =
        static_cast<float>((((p[5] / subsquares) + p[3]) / squares + p[1]) * fieldLatitude - 90);
    const auto latitude = static_cast<float>(south + ((p[9] / subsquares) + p[7]) / squares /
                                                         subsquaresPerDegreeLatitude);
    return Position{latitude, longitude};
}

std::optional<ExtendedPosition> LongMaiden2Coordinates(Text& strLongMaiden) {
    strLongMaiden = completedTo(fullLength, std::move(strLongMaiden));
    const auto corner = cornerOfTen(strLongMaiden);
    if (!corner)
        return std::nullopt;
    return ExtendedPosition{printText(static_cast<float>(corner->longitude)),
                            printText(static_cast<float>(corner->latitude))};
}

Text Coordinates2LongMaiden(double& E_Lon, double& N_Lat) {
    // Guards against values just below the border of a cell.
    constexpr double nudge = 0.0000001;
    E_Lon = (E_Lon + 180) / fieldLongitude + nudge;
    N_Lat = (N_Lat + 90) / fieldLatitude + nudge;

    Text locator;
    // Both characters of a pair, rounded while the values still hold their fractions.
    const auto appendPair = [&](int firstCode) {
        locator += characterWithCode(std::nearbyint(E_Lon + firstCode));
        locator += characterWithCode(std::nearbyint(N_Lat + firstCode));
    };
    appendPair(65);
    for (const int cells :
         {squaresPerField, subsquaresPerSquare, squaresPerField, subsquaresPerSquare}) {
        E_Lon = (E_Lon - Floor(E_Lon)) * cells;
        N_Lat = (N_Lat - Floor(N_Lat)) * cells;
        appendPair(cells == squaresPerField ? 48 : 65);
    }
    return locator;
}

} // namespace orbisgrid
