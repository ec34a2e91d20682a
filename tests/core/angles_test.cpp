#include "core/angles.h"
#include "tests/support/runtime_error_code.h"
#include "tests/support/table.h"

#include <cmath>

namespace orbisgrid {

namespace {

using test::raisedCode;
using test::Row;

class ConvertDegreeTest : public testing::TestWithParam<Row> {};

TEST_P(ConvertDegreeTest, WritesTheLongForm) {
    const Row& row = GetParam();
    EXPECT_EQ(toUtf8(Convert_Degree(static_cast<float>(row.number("angle")))), row["text"]);
}

INSTANTIATE_TEST_SUITE_P(Rows, ConvertDegreeTest,
                         testing::ValuesIn(test::readTable("angles_convert_degree.tsv")),
                         test::testName);

TEST(SplitAngle, FloorsTheDegrees) {
    const Dms dms = splitAngle<double>(-4.5);
    EXPECT_EQ(dms.degrees, -5);
    EXPECT_EQ(dms.minutes, 30);
    EXPECT_EQ(dms.seconds, 0);
}

TEST(SplitAngle, KeepsTheFractionOfTheSeconds) {
    EXPECT_NEAR(splitAngle<double>(1.5 / 3600).seconds, 1.5, 1e-12);
}

TEST(SplitAngle, StoresMinutesInThePrecisionThatIsAskedFor) {
    EXPECT_NE(splitAngle<float>(1.23456).seconds, splitAngle<double>(1.23456).seconds);
}

class ConvertDecimalTest : public testing::TestWithParam<Row> {};

TEST_P(ConvertDecimalTest, ReadsTheLongForm) {
    const Row& row = GetParam();
    Text text = row.text("text");
    double angle = 0;
    EXPECT_EQ(raisedCode([&] { angle = Convert_Decimal(text); }), row.number("error"));
    EXPECT_DOUBLE_EQ(angle, row.number("angle"));
    EXPECT_EQ(toUtf8(text), row["afterwards"]);
}

INSTANTIATE_TEST_SUITE_P(Rows, ConvertDecimalTest,
                         testing::ValuesIn(test::readTable("angles_convert_decimal.tsv")),
                         test::testName);

class Atan2Test : public testing::TestWithParam<Row> {};

TEST_P(Atan2Test, GivesTheDirectionOfThePoint) {
    const Row& row = GetParam();
    EXPECT_NEAR(Atan2(row.number("X"), row.number("Y")),
                row.number("multiple of pi") * 3.14159265358979, 1e-14);
}

INSTANTIATE_TEST_SUITE_P(Rows, Atan2Test, testing::ValuesIn(test::readTable("angles_atan2.tsv")),
                         test::testName);

/// There both quotients are the same, but a half pi of 15 digits is not twice the arc tangent of 1.
TEST(Atan2, OnADiagonalTheXAxisIsTheOneToStartFrom) {
    const double eighth = std::atan(1.0);
    EXPECT_EQ(Atan2(1, 1), eighth);
    EXPECT_EQ(Atan2(-1, 1), -eighth + pi15);
    EXPECT_EQ(Atan2(1, -1), -eighth);
    EXPECT_EQ(Atan2(-1, -1), eighth - pi15);
    EXPECT_EQ(Atan2(1, 2), pi15 / 2 - std::atan(0.5));
    EXPECT_EQ(Atan2(1, -2), -std::atan(-0.5) - pi15 / 2);
}

TEST(Atan2, RaisesAtTheOrigin) {
    EXPECT_EQ(raisedCode([] { Atan2(0, 0); }), 11);
}

class FloorTest : public testing::TestWithParam<Row> {};

TEST_P(FloorTest, CutsTowardsZero) {
    const Row& row = GetParam();
    double result = 0;
    EXPECT_EQ(raisedCode([&] { result = Floor(row.number("value")); }), row.number("error"));
    EXPECT_EQ(result, row.number("result"));
}

INSTANTIATE_TEST_SUITE_P(Rows, FloorTest, testing::ValuesIn(test::readTable("angles_floor.tsv")),
                         test::testName);

TEST(Dms2Decimal, AddsThreeTexts) {
    EXPECT_DOUBLE_EQ(Dms2Decimal(u"50", u"56", u"10.2"), 50.936166666666667);
    EXPECT_DOUBLE_EQ(Dms2Decimal(u"0", u"75", u""), 1.25);
    EXPECT_DOUBLE_EQ(Dms2Decimal(u"x", u"", u"17N"), 17.0 / 3600);
    // The fractions are added first; from the left the last digit would differ.
    EXPECT_EQ(Dms2Decimal(u"8", u"1", u"5"), 8 + (5.0 / 3600 + 1.0 / 60));
}

TEST(Deg2Rad, UsesPiToFifteenDigits) {
    EXPECT_EQ(Deg2Rad(180), 180 * (3.14159265358979 / 180));
    EXPECT_EQ(Deg2Rad(0), 0);
}

} // namespace

} // namespace orbisgrid
