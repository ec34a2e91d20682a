#include "core/long_maidenhead.h"
#include "tests/support/runtime_error_code.h"
#include "tests/support/table.h"

namespace orbisgrid {

namespace {

using test::Row;

class LongMaidenDecodeTest : public testing::TestWithParam<Row> {};

TEST_P(LongMaidenDecodeTest, PadsAndDecodes) {
    const Row& row = GetParam();
    Text locator = row.text("locator");
    const auto position = LongMaiden2Coordinates(locator);
    EXPECT_EQ(toUtf8(locator), row["locator afterwards"]);
    EXPECT_EQ(position.has_value(), row["LonText"] != "-");
    if (position) {
        EXPECT_EQ(toUtf8(position->LonText), row["LonText"]);
        EXPECT_EQ(toUtf8(position->LatText), row["LatText"]);
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, LongMaidenDecodeTest,
                         testing::ValuesIn(test::readTable("long_maidenhead_decode.tsv")),
                         test::testName);

class LongMaidenEncodeTest : public testing::TestWithParam<Row> {};

TEST_P(LongMaidenEncodeTest, RoundsEachCharacter) {
    const Row& row = GetParam();
    double longitude = row.number("longitude");
    double latitude = row.number("latitude");
    Text locator;
    EXPECT_EQ(test::raisedCode([&] { locator = Coordinates2LongMaiden(longitude, latitude); }),
              row.number("error"));
    EXPECT_EQ(toUtf8(locator), row["locator"]);
}

INSTANTIATE_TEST_SUITE_P(Rows, LongMaidenEncodeTest,
                         testing::ValuesIn(test::readTable("long_maidenhead_encode.tsv")),
                         test::testName);

TEST(Coordinates2LongMaiden, LeavesTheLastScaledValues) {
    double longitude = 4.0416;
    double latitude = 50.9375;
    EXPECT_EQ(Coordinates2LongMaiden(longitude, latitude), u"JO21AX55YA");
    // In units of an extended subsquare within its extended square.
    EXPECT_NEAR(longitude, 23.81376, 0.001);
    EXPECT_NEAR(latitude, 0.0058, 0.001);
}

} // namespace

} // namespace orbisgrid
