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
    Text locator = row.text("locator");
    const LocatorPosition position = Maiden2World(locator);
    EXPECT_EQ(toUtf8(locator), row["locator afterwards"]);
    EXPECT_EQ(toUtf8(position.LonText), row["LonText"]);
    EXPECT_EQ(toUtf8(position.LatText), row["LatText"]);
    EXPECT_EQ(position.position.longitude, static_cast<float>(row.number("longitude")));
    EXPECT_EQ(position.position.latitude, static_cast<float>(row.number("latitude")));
}

INSTANTIATE_TEST_SUITE_P(Rows, Maiden2WorldTest,
                         testing::ValuesIn(test::readTable("maidenhead_decode.tsv")),
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
    Text locator = row.text("locator");
    const LocatorPositionHMS position = Maiden2WorldHMS(locator);
    EXPECT_EQ(toUtf8(position.LonText), row["LonText"]);
    EXPECT_EQ(toUtf8(position.LatText), row["LatText"]);
    EXPECT_EQ(toUtf8(position.LonDmsText), row["LonDmsText"]);
    EXPECT_EQ(toUtf8(position.LatDmsText), row["LatDmsText"]);
    EXPECT_EQ(position.LonDeg, row.number("LonDeg"));
    EXPECT_EQ(position.LonMin, row.number("LonMin"));
    EXPECT_NEAR(position.LonSec, row.number("LonSec"), 0.0005);
    EXPECT_EQ(position.LatDeg, row.number("LatDeg"));
    EXPECT_EQ(position.LatMin, row.number("LatMin"));
    EXPECT_EQ(position.LatSec, row.number("LatSec"));
}

INSTANTIATE_TEST_SUITE_P(Rows, Maiden2WorldHMSTest,
                         testing::ValuesIn(test::readTable("maidenhead_decode_hms.tsv")),
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
    double longitude = row.number("longitude");
    double latitude = row.number("latitude");
    Text locator;
    EXPECT_EQ(raisedCode([&] { locator = World2Grid(longitude, latitude); }), row.number("error"));
    EXPECT_EQ(toUtf8(locator), row["locator"]);
    if (!row["longitude left"].empty()) {
        EXPECT_NEAR(longitude, row.number("longitude left"), 0.0000005);
        EXPECT_NEAR(latitude, row.number("latitude left"), 0.0000005);
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, World2GridTest,
                         testing::ValuesIn(test::readTable("maidenhead_grid.tsv")), test::testName);

TEST(LocatorOf, IsWorld2GridLatitudeFirst) {
    EXPECT_EQ(locatorOf({50.9375, 4.041666}), u"JO20AW");
    EXPECT_EQ(raisedCode([] { (void)locatorOf({50, 1e9}); }), 6);
}

class LongerLocatorTest : public testing::TestWithParam<Row> {};

TEST_P(LongerLocatorTest, HasFurtherPairsThatAreCut) {
    const Row& row = GetParam();
    const Position position{row.number("latitude"), row.number("longitude")};
    EXPECT_EQ(toUtf8(locatorOf(position, 6)), row["ten"].substr(0, 6));
    EXPECT_EQ(toUtf8(locatorOf(position, 8)), row["eight"]);
    EXPECT_EQ(toUtf8(locatorOf(position, 10)), row["ten"]);
}

INSTANTIATE_TEST_SUITE_P(Rows, LongerLocatorTest,
                         testing::ValuesIn(test::readTable("maidenhead_pairs.tsv")),
                         test::testName);

TEST(CentreOfSix, IsNotStoredAsSingle) {
    EXPECT_NEAR(centreOfSix(u"JO20AW").longitude, 4 + 1 / 24.0, 1e-13);
    EXPECT_NE(centreOfSix(u"JO20AW").longitude, static_cast<float>(4 + 1 / 24.0));
    EXPECT_EQ(centreOfSix(u"JO20AW").latitude, 50.9375);
}

class World2MaidenTest : public testing::TestWithParam<Row> {};

TEST_P(World2MaidenTest, CountsLongitudeTowardsTheWest) {
    const Row& row = GetParam();
    Text locator;
    const auto encode = [&] {
        locator = World2Maiden(row.number("LongCo"), row.number("LatCo"), 0);
    };
    EXPECT_EQ(raisedCode(encode), row.number("error"));
    EXPECT_EQ(toUtf8(locator), row["locator"]);
}

INSTANTIATE_TEST_SUITE_P(Rows, World2MaidenTest,
                         testing::ValuesIn(test::readTable("maidenhead_west_positive.tsv")),
                         test::testName);

} // namespace

} // namespace orbisgrid
