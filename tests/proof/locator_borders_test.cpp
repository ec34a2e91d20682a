#include "core/maidenhead.h"
#include "tests/proof/locator_reference.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace orbisgrid {

namespace {

using test::Axis;
using test::sixCells;

/// The cell that World2Grid gives a value of one axis.
int gridCell(const Axis& axis, double value) {
    const bool isLongitude = axis.start == test::longitudeAxis.start;
    double longitude = isLongitude ? value : 0;
    double latitude = isLongitude ? 0 : value;
    const Text locator = World2Grid(longitude, latitude);
    const std::size_t first = isLongitude ? 0 : 1;
    return test::cellOfSix(locator[first], locator[first + 2], locator[first + 4]);
}

/// On which side of the border at the start of `cell` a value truly lies: below 0, 0 or above.
/// The fused multiply-add rounds only once, so its sign is exact.
int trueSide(const Axis& axis, double value, int cell) {
    const double away = std::fma(value, axis.cellsPerDegree,
                                 -static_cast<double>(cell + axis.start * axis.cellsPerDegree));
    return (away > 0 ? 1 : 0) - (away < 0 ? 1 : 0);
}

/// How the borders of one axis fall, counted over its 4320 cells and the end of the last one.
struct Sides {
    int below = 0;      ///< values that go into the cell below the border
    int above = 0;      ///< into the one above it
    int elsewhere = 0;  ///< into any other
    int wrongBelow = 0; ///< go below though the value is not below the border
    int wrongAbove = 0; ///< go above though the value is below the border
};

enum class Offset { oneUlpBelow, none, oneUlpAbove };

double moved(double value, Offset offset) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    if (offset == Offset::none)
        return value;
    return std::nextafter(value, offset == Offset::oneUlpAbove ? infinity : -infinity);
}

Sides sidesOf(const Axis& axis, Offset offset) {
    Sides sides;
    for (int cell = 0; cell <= sixCells; ++cell) {
        const double border = static_cast<double>(cell) / axis.cellsPerDegree + axis.start;
        const double value = moved(border, offset);
        const int found = gridCell(axis, value);
        const bool isBelow = trueSide(axis, value, cell) < 0;
        sides.below += found == cell - 1 ? 1 : 0;
        sides.above += found == cell ? 1 : 0;
        sides.elsewhere += found != cell - 1 && found != cell ? 1 : 0;
        sides.wrongBelow += found == cell - 1 && !isBelow ? 1 : 0;
        sides.wrongAbove += found == cell && isBelow ? 1 : 0;
    }
    return sides;
}

void expectSides(const Axis& axis, Offset offset, const Sides& expected) {
    const Sides sides = sidesOf(axis, offset);
    EXPECT_EQ(sides.below, expected.below);
    EXPECT_EQ(sides.above, expected.above);
    EXPECT_EQ(sides.elsewhere, expected.elsewhere);
    EXPECT_EQ(sides.wrongBelow, expected.wrongBelow);
    EXPECT_EQ(sides.wrongAbove, expected.wrongAbove);
}

// World2Grid divides by 20 (10), which no binary fraction can do exactly, and goes on with
// remainders of that quotient: where it was rounded down a border falls into the cell below it
// (longitude 4 with latitude 50 is JO10XA), where it was rounded up a value just below goes into
// the cell above. There is no nudge, so both happen. Besides, two of three borders are no binary
// fractions themselves. Never is a value more than one cell away. Both axes count alike: one is the
// other at half the scale.

class CellBorders : public testing::TestWithParam<Axis> {};

TEST_P(CellBorders, FallByTheRoundingOfTheQuotient) {
    expectSides(GetParam(), Offset::none, {1967, 2354, 0, 673, 146});
}

TEST_P(CellBorders, OneUlpBelowMostFallBelow) {
    expectSides(GetParam(), Offset::oneUlpBelow, {3064, 1257, 0, 68, 653});
}

TEST_P(CellBorders, OneUlpAboveMostFallAbove) {
    expectSides(GetParam(), Offset::oneUlpAbove, {1064, 3257, 0, 459, 67});
}

INSTANTIATE_TEST_SUITE_P(Axes, CellBorders,
                         testing::Values(test::longitudeAxis, test::latitudeAxis));

} // namespace

} // namespace orbisgrid
