#include "map/sun.h"

#include "tests/support/table.h"

#include <cmath>
#include <limits>

namespace orbisgrid {

namespace {

using test::Row;

class SubsolarTest : public testing::TestWithParam<Row> {};

TEST_P(SubsolarTest, IsWithinATwentiethOfADegree) {
    const Row& row = GetParam();
    const auto moment = parsedMoment(row["moment"]);
    ASSERT_TRUE(moment);
    const Position place = subsolarPoint(*moment);
    EXPECT_NEAR(place.latitude, row.number("latitude"), 0.015);
    EXPECT_NEAR(std::remainder(place.longitude - row.number("longitude"), 360), 0, 0.015);
    EXPECT_GE(place.longitude, -180);
    EXPECT_LT(place.longitude, 180);
}

INSTANTIATE_TEST_SUITE_P(Rows, SubsolarTest, testing::ValuesIn(test::readTable("map_sun.tsv")),
                         test::testName);

class SunFormulaTest : public testing::TestWithParam<Row> {};

TEST_P(SunFormulaTest, HasEachOfItsTerms) {
    const Row& row = GetParam();
    const Moment moment = parsedMoment(row["moment"]).value();
    // A million turns of the earth leave fewer digits for the last one.
    const bool isNear = moment.seconds > 0 && moment.seconds < 5'000'000'000;
    const double tolerance = isNear ? 2e-8 : 2e-6;
    const Position place = subsolarPoint(moment);
    EXPECT_NEAR(place.latitude, row.number("latitude"), tolerance);
    EXPECT_NEAR(std::remainder(place.longitude - row.number("longitude"), 360), 0, tolerance);
}

INSTANTIATE_TEST_SUITE_P(Rows, SunFormulaTest,
                         testing::ValuesIn(test::readTable("map_sun_formula.tsv")), test::testName);

class MomentTest : public testing::TestWithParam<Row> {};

TEST_P(MomentTest, IsReadStrictly) {
    const Row& row = GetParam();
    const auto moment = parsedMoment(row["text"]);
    ASSERT_EQ(moment.has_value(), row["seconds"] != "-");
    if (!moment)
        return;
    EXPECT_EQ(std::to_string(moment->seconds), row["seconds"]);
    EXPECT_EQ(momentText(*moment), row["text"]);
}

INSTANTIATE_TEST_SUITE_P(Rows, MomentTest, testing::ValuesIn(test::readTable("map_moment.tsv")),
                         test::testName);

TEST(Moment, IsNotReadFromALongerText) {
    EXPECT_FALSE(parsedMoment("2026-06-21T12:00:00Z "));
    EXPECT_FALSE(parsedMoment("2026-06-21T12:00:00ZZ"));
    EXPECT_FALSE(parsedMoment(std::string_view("2026-06-21T12:00:00Z\0", 21)));
}

TEST(Moment, IsEqualToItselfAlone) {
    EXPECT_EQ(Moment{1}, Moment{1});
    EXPECT_FALSE(Moment{1} == Moment{2});
}

TEST(Moment, BeyondTheCalendarIsItsEnd) {
    using Limits = std::numeric_limits<std::int64_t>;
    EXPECT_EQ(momentText({Limits::max()}), "9999-12-31T23:59:59Z");
    EXPECT_EQ(momentText({Limits::min()}), "0001-01-01T00:00:00Z");
    for (const std::int64_t seconds : {Limits::max(), Limits::min()}) {
        const Position place = subsolarPoint({seconds});
        EXPECT_LE(std::fabs(place.latitude), 25);
        EXPECT_LE(std::fabs(place.longitude), 180);
    }
}

TEST(Moment, ItsNoteEndsWithTheMinute) {
    EXPECT_EQ(toUtf8(momentNote(*parsedMoment("2026-06-21T09:05:59Z"))), "2026-06-21 09:05 UTC");
}

} // namespace

} // namespace orbisgrid
