#include "core/conversion.h"
#include "tests/support/table.h"

namespace orbisgrid {

namespace {

using test::Row;

class WorldDMSTest : public testing::TestWithParam<Row> {};

TEST_P(WorldDMSTest, SplitsADecimalText) {
    const Row& row = GetParam();
    const auto dms = WorldDMS(row.text("text"));
    ASSERT_TRUE(dms.has_value());
    EXPECT_EQ(dms->Deg, row.number("degrees"));
    EXPECT_EQ(dms->Min, row.number("minutes"));
    EXPECT_EQ(dms->Sec, row.number("seconds"));
    EXPECT_EQ(dms->isNegative, row.flag("negative"));
}

INSTANTIATE_TEST_SUITE_P(Rows, WorldDMSTest,
                         testing::ValuesIn(test::readTable("conversion_world_dms.tsv")),
                         test::testName);

/// The UI-View text of a window without a position shows it.
TEST(WholeDms, StartsAtZero) {
    const WholeDms start;
    EXPECT_EQ(start.Deg, 0);
    EXPECT_EQ(start.Min, 0);
    EXPECT_EQ(start.Sec, 0);
    EXPECT_FALSE(start.isNegative);
}

TEST(WorldDMS, SkipsANumberTooLargeToBeOne) {
    EXPECT_EQ(WorldDMS(Text(400, u'9')).has_value(), false);
}

class DecimalCoordinatesTest : public testing::TestWithParam<Row> {};

TEST_P(DecimalCoordinatesTest, EncodesTheBoxes) {
    const Row& row = GetParam();
    const auto result = DecimalCoordinates(row.text("latitude"), row.text("longitude"));
    const bool isConverted = result.outcome == DecimalCoordinatesOutcome::converted;
    EXPECT_EQ(isConverted, row["locator"] != "-");
    if (isConverted) {
        EXPECT_EQ(toUtf8(result.locator), row["locator"]);
    } else {
        EXPECT_EQ(result.outcome, DecimalCoordinatesOutcome::outOfGrid);
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, DecimalCoordinatesTest,
                         testing::ValuesIn(test::readTable("conversion_decimal.tsv")),
                         test::testName);

TEST(DecimalCoordinates, RefusesANumberTooLargeToBeOne) {
    const Text endless(400, u'9');
    EXPECT_EQ(DecimalCoordinates(endless, u"0").outcome, DecimalCoordinatesOutcome::unreadable);
    EXPECT_EQ(DecimalCoordinates(u"0", endless).outcome, DecimalCoordinatesOutcome::unreadable);
}

} // namespace

} // namespace orbisgrid
