#include "core/number_text.h"
#include "geodesy/great_circle.h"
#include "tests/support/table.h"

#include <cmath>

namespace orbisgrid {

namespace {

using test::Row;

class CalcDistAzimuthTest : public testing::TestWithParam<Row> {};

TEST_P(CalcDistAzimuthTest, LeavesItsTexts) {
    const Row& row = GetParam();
    DistAzimuthTexts texts;
    CalcDistAzimuth(row.text(0), row.text(1), texts);
    EXPECT_EQ(toUtf8(texts.DistText), row.fields[2]);
    EXPECT_EQ(toUtf8(texts.AzimuthText), row.fields[3]);
    EXPECT_EQ(toUtf8(texts.LonText), row.fields[4]);
    EXPECT_EQ(toUtf8(texts.LatText), row.fields[5]);
    EXPECT_EQ(std::floor(leadingNumber(texts.DistText) / 1.601), row.number(6));
}

INSTANTIATE_TEST_SUITE_P(Rows, CalcDistAzimuthTest,
                         testing::ValuesIn(test::readTable("great_circle.tsv", 7)), test::testName);

TEST(CalcDistAzimuth, LeavesTheOtherTextsOnARefusal) {
    for (const auto& [home, target] : {std::pair{u"JO20ay", u"JO20aw"}, {u"JO20aw", u"SA00aa"}}) {
        DistAzimuthTexts texts{u"1", u"2", u"3", u"4"};
        CalcDistAzimuth(home, target, texts);
        EXPECT_EQ(texts.DistText, u"-1");
        EXPECT_EQ(texts.LonText, u"2");
        EXPECT_EQ(texts.LatText, u"3");
        EXPECT_EQ(texts.AzimuthText, u"4");
    }
}

TEST(GreatCircle, CountsLongitudeTowardsTheWest) {
    const WestPositivePoint point = pointOf(u"FN42aa");
    EXPECT_FLOAT_EQ(point.lonW, 71.958336F);
    EXPECT_FLOAT_EQ(point.lat, 42.020832F);
}

TEST(GreatCircle, AzimuthAlongAMeridianAndBack) {
    const WestPositivePoint south{-10, 10}, north{-10, 40};
    EXPECT_NEAR(greatCircle(south, north).az, 0, 0.05); // single precision
    EXPECT_NEAR(greatCircle(north, south).az, 180, 0.05);
}

TEST(GreatCircle, SmallAzimuthKeepsItsDigits) {
    // Without a turn through 360 degrees, which would cost the last five.
    EXPECT_FLOAT_EQ(greatCircle(pointOf(u"NQ82qx"), pointOf(u"ER59he")).az, 0.315279037F);
}

TEST(GreatCircle, AzimuthWhereItsCosineIsExactlyZero) {
    // From the equator due east: the quotient under the arc tangent is infinite.
    EXPECT_NEAR(greatCircle({0, 0}, {-30, 0}).az, 90, 0.00001);
    EXPECT_NEAR(greatCircle({0, 0}, {30, 0}).az, 270, 0.0001);
}

} // namespace

} // namespace orbisgrid
