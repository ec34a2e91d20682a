#include "core/maidenhead.h"
#include "tests/support/runtime_error_code.h"
#include "tests/support/table.h"

namespace orbisgrid {

namespace {

using test::raisedCode;
using test::Row;

class Maiden2WorldTest : public testing::TestWithParam<Row> {};

TEST_P(Maiden2WorldTest, LeavesThePosition) {
    const Row& row = GetParam();
    Text locator = row.text(0);
    const LocatorPosition position = Maiden2World(locator);
    EXPECT_EQ(toUtf8(locator), row.fields[1]);
    EXPECT_EQ(toUtf8(position.LonText), row.fields[2]);
    EXPECT_EQ(toUtf8(position.LatText), row.fields[3]);
    EXPECT_EQ(position.longitude, static_cast<float>(row.number(4)));
    EXPECT_EQ(position.latitude, static_cast<float>(row.number(5)));
}

INSTANTIATE_TEST_SUITE_P(Rows, Maiden2WorldTest,
                         testing::ValuesIn(test::readTable("maidenhead_decode.tsv", 6)),
                         test::testName);

TEST(Maiden2World, RaisesForThreeCharacters) {
    Text locator = u"JO2";
    EXPECT_EQ(raisedCode([&] { Maiden2World(locator); }), 5);
    locator.clear();
    EXPECT_EQ(raisedCode([&] { Maiden2World(locator); }), 5);
}

class Maiden2WorldHMSTest : public testing::TestWithParam<Row> {};

TEST_P(Maiden2WorldHMSTest, LeavesTextsAndParts) {
    const Row& row = GetParam();
    Text locator = row.text(0);
    const LocatorPositionHMS position = Maiden2WorldHMS(locator);
    EXPECT_EQ(toUtf8(position.LonText), row.fields[1]);
    EXPECT_EQ(toUtf8(position.LatText), row.fields[2]);
    EXPECT_EQ(toUtf8(position.LonDmsText), row.fields[3]);
    EXPECT_EQ(toUtf8(position.LatDmsText), row.fields[4]);
    EXPECT_EQ(position.LonDeg, row.number(5));
    EXPECT_EQ(position.LonMin, row.number(6));
    EXPECT_NEAR(position.LonSec, row.number(7), 0.0005);
    EXPECT_EQ(position.LatDeg, row.number(8));
    EXPECT_EQ(position.LatMin, row.number(9));
    EXPECT_EQ(position.LatSec, row.number(10));
}

INSTANTIATE_TEST_SUITE_P(Rows, Maiden2WorldHMSTest,
                         testing::ValuesIn(test::readTable("maidenhead_decode_hms.tsv", 11)),
                         test::testName);

TEST(Maiden2WorldHMS, CompletesItsArgument) {
    Text locator = u"fn20";
    Maiden2WorldHMS(locator);
    EXPECT_EQ(locator, u"FN20LL");
}

TEST(Maiden2WorldHMS, CountsMissingCharactersAsZero) {
    Text locator = u"JO2";
    const LocatorPositionHMS position = Maiden2WorldHMS(locator);
    // (74 - 65) * 20 - 180 + (50 - 48) * 2 + (0 - 64.5) / 12 and
    // (79 - 65) * 10 - 90 + (0 - 48) + (0 - 64.5) / 24
    EXPECT_EQ(position.LonText, u"1.375W");
    EXPECT_EQ(position.LatText, u"0.6875S");
}

TEST(Maiden2WorldHMS, KeepsTheFractionOfTheLongitudesSecondsOnly) {
    Text locator = u"AA00AA";
    EXPECT_NE(Maiden2WorldHMS(locator).LonSec, 30);
    EXPECT_EQ(Maiden2WorldHMS(locator).LatSec, 45);
}

class World2GridTest : public testing::TestWithParam<Row> {};

TEST_P(World2GridTest, TruncatesToALocator) {
    const Row& row = GetParam();
    double longitude = row.number(0);
    double latitude = row.number(1);
    Text locator;
    EXPECT_EQ(raisedCode([&] { locator = World2Grid(longitude, latitude); }), row.number(3));
    EXPECT_EQ(toUtf8(locator), row.fields[2]);
    if (!row.fields[4].empty()) {
        EXPECT_NEAR(longitude, row.number(4), 0.0000005);
        EXPECT_NEAR(latitude, row.number(5), 0.0000005);
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, World2GridTest,
                         testing::ValuesIn(test::readTable("maidenhead_grid.tsv", 6)),
                         test::testName);

class World2MaidenTest : public testing::TestWithParam<Row> {};

TEST_P(World2MaidenTest, CountsLongitudeTowardsTheWest) {
    const Row& row = GetParam();
    Text locator;
    const auto encode = [&] { locator = World2Maiden(row.number(0), row.number(1), 0); };
    EXPECT_EQ(raisedCode(encode), row.number(3));
    EXPECT_EQ(toUtf8(locator), row.fields[2]);
}

INSTANTIATE_TEST_SUITE_P(Rows, World2MaidenTest,
                         testing::ValuesIn(test::readTable("maidenhead_west_positive.tsv", 4)),
                         test::testName);

} // namespace

} // namespace orbisgrid
