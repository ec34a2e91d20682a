#include "core/long_maidenhead.h"
#include "tests/support/runtime_error_code.h"
#include "tests/support/table.h"

namespace orbisgrid {

namespace {

using test::Row;

class LongMaidenDecodeTest : public testing::TestWithParam<Row> {};

TEST_P(LongMaidenDecodeTest, PadsAndDecodes) {
    const Row& row = GetParam();
    Text locator = row.text(0);
    const auto position = LongMaiden2Coordinates(locator);
    EXPECT_EQ(toUtf8(locator), row.fields[1]);
    EXPECT_EQ(position.has_value(), row.fields[2] != "-");
    if (position) {
        EXPECT_EQ(toUtf8(position->LonText), row.fields[2]);
        EXPECT_EQ(toUtf8(position->LatText), row.fields[3]);
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, LongMaidenDecodeTest,
                         testing::ValuesIn(test::readTable("long_maidenhead_decode.tsv", 4)),
                         test::testName);

class LongMaidenEncodeTest : public testing::TestWithParam<Row> {};

TEST_P(LongMaidenEncodeTest, RoundsEachCharacter) {
    const Row& row = GetParam();
    double longitude = row.number(0);
    double latitude = row.number(1);
    Text locator;
    EXPECT_EQ(test::raisedCode([&] { locator = Coordinates2LongMaiden(longitude, latitude); }),
              row.number(3));
    EXPECT_EQ(toUtf8(locator), row.fields[2]);
}

INSTANTIATE_TEST_SUITE_P(Rows, LongMaidenEncodeTest,
                         testing::ValuesIn(test::readTable("long_maidenhead_encode.tsv", 4)),
                         test::testName);

TEST(Coordinates2LongMaiden, LeavesTheLastScaledValues) {
    double longitude = 4.0416;
    double latitude = 50.9375;
    Coordinates2LongMaiden(longitude, latitude);
    // In units of an extended subsquare within its extended square.
    EXPECT_NEAR(longitude, 23.81376, 0.001);
    EXPECT_NEAR(latitude, 0.0058, 0.001);
}

} // namespace

} // namespace orbisgrid
