#include "core/long_maidenhead.h"
#include "core/maidenhead.h"
#include "core/number_text.h"
#include "geodesy/great_circle.h"
#include "geodesy/locator_check.h"
#include "tests/proof/locator_reference.h"

#include <gtest/gtest.h>

#include <vector>

namespace orbisgrid {

namespace {

using test::sixCells;

/// What one cell of an axis is to decode to.
struct Expected {
    float single = 0;      ///< the centre, rounded once
    std::string seven;     ///< Maiden2World: seven digits of the centre before that rounding
    std::string longSeven; ///< LongMaiden2Coordinates: of the single, which is stored twice
};

std::vector<Expected> expectedOf(const test::Axis& axis) {
    std::vector<Expected> cells;
    for (int cell = 0; cell < sixCells; ++cell) {
        const long double centre = test::centreOfSix(axis, cell);
        const long double corner = centre - 0.5L / axis.cellsPerDegree;
        const auto stored = static_cast<float>(corner);
        const auto storedTwice = static_cast<float>(stored + 0.5L / axis.cellsPerDegree);
        cells.push_back({static_cast<float>(centre), test::sevenDigits(static_cast<double>(centre)),
                         test::sevenDigits(storedTwice)});
    }
    return cells;
}

const std::vector<Expected>& longitudes() {
    static const std::vector<Expected> cells = expectedOf(test::longitudeAxis);
    return cells;
}

const std::vector<Expected>& latitudes() {
    static const std::vector<Expected> cells = expectedOf(test::latitudeAxis);
    return cells;
}

/// How many cells from `first` on show another text by one decoder than by the other.
int differing(const std::vector<Expected>& cells, int first, int count) {
    int result = 0;
    for (int cell = first; cell < first + count; ++cell) {
        const Expected& expected = cells.at(static_cast<std::size_t>(cell));
        result += expected.seven == expected.longSeven ? 0 : 1;
    }
    return result;
}

bool isText(TextView text, const std::string& expected, char16_t letter) {
    return text.size() == expected.size() + 1 && text.back() == letter &&
           std::equal(expected.begin(), expected.end(), text.begin());
}

/// The signed print form: a blank in front of what has no minus sign.
bool isPrintText(TextView text, const std::string& expected) {
    if (!expected.starts_with('-')) {
        if (!text.starts_with(u' '))
            return false;
        text.remove_prefix(1);
    }
    return std::equal(text.begin(), text.end(), expected.begin(), expected.end());
}

/// Counts what is wrong and keeps the first locator where it was.
struct Tally {
    int count = 0;
    std::string first;

    void add(bool isWrong, const Text& locator) {
        if (isWrong && count++ == 0)
            first = toUtf8(locator);
    }
};

struct Tallies {
    Tally decode, texts, encode, encodeText, westPositive, longTexts, check, point;
    int differentTexts = 0;
};

void proveDecoders(const Text& locator, const Expected& lon, const Expected& lat,
                   Tallies& tallies) {
    Text argument = locator;
    const LocatorPosition position = Maiden2World(argument);
    tallies.decode.add(argument != locator || position.position != Position{lat.single, lon.single},
                       locator);
    tallies.texts.add(!isText(position.LonText, lon.seven, lon.single < 0 ? u'W' : u'E') ||
                          !isText(position.LatText, lat.seven, lat.single < 0 ? u'S' : u'N'),
                      locator);
    const auto extended = LongMaiden2Coordinates(argument);
    tallies.longTexts.add(!extended || !isPrintText(extended->LonText, lon.longSeven) ||
                              !isPrintText(extended->LatText, lat.longSeven),
                          locator);
    if (lon.seven != lon.longSeven || lat.seven != lat.longSeven)
        ++tallies.differentTexts;
}

void proveEncoders(const Text& locator, const Expected& lon, const Expected& lat,
                   Tallies& tallies) {
    double longitude = lon.single;
    double latitude = lat.single;
    tallies.encode.add(World2Grid(longitude, latitude) != locator, locator);
    tallies.westPositive.add(World2Maiden(-lon.single, lat.single, 0) != locator, locator);
}

void proveCheck(const Text& locator, const Expected& lon, const Expected& lat, Tallies& tallies) {
    const auto checked = checkedHome(locator);
    tallies.check.add(
        !checked || upperCase(*checked) != locator || checkedTarget(locator) != checked, locator);
    if (!checked)
        return;
    tallies.point.add(pointOf(*checked) != Position{lat.single, lon.single}, locator);
}

class LocatorsOfSix : public testing::TestWithParam<int> {};

/// One longitude field with every latitude: 240 x 4320 locators.
TEST_P(LocatorsOfSix, AgreeInEveryDecoderAndEncoder) {
    constexpr int cellsOfField = 240;
    const int firstCell = GetParam() * cellsOfField;
    Tallies tallies;
    for (int x = firstCell; x < firstCell + cellsOfField; ++x) {
        for (int y = 0; y < sixCells; ++y) {
            const Expected& lon = longitudes()[static_cast<std::size_t>(x)];
            const Expected& lat = latitudes()[static_cast<std::size_t>(y)];
            const Text locator = test::locatorOfSix(x, y);
            proveDecoders(locator, lon, lat, tallies);
            proveEncoders(locator, lon, lat, tallies);
            proveCheck(locator, lon, lat, tallies);
        }
    }
    EXPECT_EQ(tallies.decode.count, 0) << "position, first at " << tallies.decode.first;
    EXPECT_EQ(tallies.texts.count, 0) << "texts, first at " << tallies.texts.first;
    EXPECT_EQ(tallies.longTexts.count, 0) << "long texts, first at " << tallies.longTexts.first;
    EXPECT_EQ(tallies.encode.count, 0) << "World2Grid, first at " << tallies.encode.first;
    EXPECT_EQ(tallies.westPositive.count, 0) << "first at " << tallies.westPositive.first;
    EXPECT_EQ(tallies.check.count, 0) << "check, first at " << tallies.check.first;
    EXPECT_EQ(tallies.point.count, 0) << "point, first at " << tallies.point.first;
    const int sameLongitudes = cellsOfField - differing(longitudes(), firstCell, cellsOfField);
    const int sameLatitudes = sixCells - differing(latitudes(), 0, sixCells);
    EXPECT_EQ(tallies.differentTexts, cellsOfField * sixCells - sameLongitudes * sameLatitudes);
}

INSTANTIATE_TEST_SUITE_P(Fields, LocatorsOfSix, testing::Range(0, 18));

/// The only difference of the two decoders: Maiden2World writes seven digits of the centre itself,
/// LongMaiden2Coordinates of a single that was stored twice on the way to it.
TEST(LocatorsOfSixTexts, DifferByTheRoundingToSingle) {
    const int longitudeCells = differing(longitudes(), 0, sixCells);
    const int latitudeCells = differing(latitudes(), 0, sixCells);
    EXPECT_EQ(longitudeCells, 564);
    EXPECT_EQ(latitudeCells, 968);
    EXPECT_EQ(sixCells * sixCells - (sixCells - longitudeCells) * (sixCells - latitudeCells),
              6'072'288)
        << "of 18,662,400 locators";
}

} // namespace

} // namespace orbisgrid
