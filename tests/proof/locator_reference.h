#pragma once

#include "core/text.h"

#include <array>
#include <string>

namespace orbisgrid::test {

// Locators by axis. The longitude and the latitude of a locator use every other character and
// nothing else of it, so what holds for each axis holds for each pair of them.

/// Cells of one axis: 18 fields of 10 squares of 24 subsquares, each of those of 10 extended
/// squares of 24 extended subsquares.
inline constexpr int sixCells = 18 * 10 * 24;
inline constexpr int tenCells = sixCells * 10 * 24;

/// An axis: how many degrees one 6-character cell has, and where the first one begins.
struct Axis {
    int cellsPerDegree; ///< 12 in longitude, 24 in latitude
    int start;          ///< -180 or -90
};

inline constexpr Axis longitudeAxis{12, -180};
inline constexpr Axis latitudeAxis{24, -90};

/// The axis's characters of a 6-character cell, counted from its west (south) end.
std::array<char16_t, 3> charactersOfSix(int cell);

/// The same of a 10-character cell.
std::array<char16_t, 5> charactersOfTen(int cell);

/// The 6-character cell that an axis's three characters name, whatever they are.
int cellOfSix(char16_t field, char16_t square, char16_t subsquare);

/// The locator of two cells.
Text locatorOfSix(int longitudeCell, int latitudeCell);
Text locatorOfTen(int longitudeCell, int latitudeCell);

/// The centre of a 6-character cell, with more digits than a double holds.
long double centreOfSix(const Axis& axis, int cell);

/// `value` with at most 7 significant digits, by the C library: another implementation than the
/// program's. For magnitudes of 0.0001 and more.
std::string sevenDigits(double value);

} // namespace orbisgrid::test
