#include "core/number_text.h"
#include "geodesy/great_circle.h"
#include "tests/support/table.h"

namespace orbisgrid {

namespace {

using test::Row;

class PathBetweenTest : public testing::TestWithParam<Row> {};

TEST_P(PathBetweenTest, IsTheNumbersOfTheTexts) {
    const Row& row = GetParam();
    const Text home = row.text("home"), target = row.text("target");
    const auto path = pathBetween({home, target});
    ASSERT_TRUE(path.has_value());
    EXPECT_EQ(shownKilometres(path->circle.kilometres), row.number("DistText"));
    EXPECT_EQ(shownAzimuth(path->circle.azimuth), row.number("AzimuthText"));
    EXPECT_EQ(toUtf8(printText(static_cast<float>(-path->target.longitude))), row["LonText"]);
    EXPECT_EQ(toUtf8(printText(static_cast<float>(path->target.latitude))), row["LatText"]);
}

INSTANTIATE_TEST_SUITE_P(Rows, PathBetweenTest,
                         testing::ValuesIn(test::readTable("great_circle.tsv")), test::testName);

TEST(PathBetween, IsNothingWhereALocatorIsNone) {
    EXPECT_FALSE(pathBetween({u"JO20ay", u"JO20aw"}).has_value());
    EXPECT_FALSE(pathBetween({u"JO20aw", u"SA00aa"}).has_value());
}

TEST(PathBetween, StartsAtTheHome) {
    EXPECT_EQ(pathBetween({u"jo20", u"FN42AA"})->home, pointOf(u"JO20ll"));
}

TEST(ShownKilometres, GoUpFromNineteenTwentieths) {
    EXPECT_EQ(shownKilometres(123.94), 123);
    EXPECT_EQ(shownKilometres(123.95), 124);
    EXPECT_EQ(shownKilometres(123.5), 123);
}

TEST(ShownMiles, AreCut) {
    EXPECT_EQ(shownMiles(1601), 1000);
    EXPECT_EQ(shownMiles(1600), 999);
}

TEST(ShownAzimuth, IsCut) {
    EXPECT_EQ(shownAzimuth(291.9), 291);
    EXPECT_EQ(shownAzimuth(359.99), 359);
}

TEST(GreatCircle, CountsLongitudeTowardsTheEast) {
    const Position point = pointOf(u"FN42aa");
    EXPECT_EQ(point.longitude, -71.958336F);
    EXPECT_EQ(point.latitude, 42.020832F);
}

TEST(GreatCircle, StoresItsArgumentsAsSingle) {
    const Position home{50.123456789, 4.987654321};
    const Position target{42.987654321, -71.123456789};
    const auto stored = [](Position position) {
        return Position{static_cast<float>(position.latitude),
                        static_cast<float>(position.longitude)};
    };
    EXPECT_EQ(greatCircle(home, target).kilometres,
              greatCircle(stored(home), stored(target)).kilometres);
    EXPECT_EQ(greatCircle(home, home).kilometres, 0);
}

TEST(GreatCircle, AzimuthAlongAMeridianAndBack) {
    const Position south{10, 10}, north{40, 10};
    EXPECT_NEAR(greatCircle(south, north).azimuth, 0, 0.05); // single precision
    EXPECT_NEAR(greatCircle(north, south).azimuth, 180, 0.05);
}

TEST(GreatCircle, SmallAzimuthKeepsItsDigits) {
    // Without a turn through 360 degrees, which would cost the last five.
    EXPECT_FLOAT_EQ(greatCircle(pointOf(u"NQ82qx"), pointOf(u"ER59he")).azimuth, 0.315279037F);
}

TEST(GreatCircle, AzimuthWhereItsCosineIsExactlyZero) {
    // From the equator due east: the quotient under the arc tangent is infinite.
    EXPECT_NEAR(greatCircle({0, 0}, {0, 30}).azimuth, 90, 0.00001);
    EXPECT_NEAR(greatCircle({0, 0}, {0, -30}).azimuth, 270, 0.0001);
}

} // namespace

} // namespace orbisgrid
