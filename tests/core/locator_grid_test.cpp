#include "core/locator_grid.h"
#include "tests/support/table.h"

namespace orbisgrid {

namespace {

using test::Row;

class CompletedToTest : public testing::TestWithParam<Row> {};

TEST_P(CompletedToTest, FillsWhatIsMissing) {
    const Row& row = GetParam();
    EXPECT_EQ(toUtf8(completedTo(6, row.text("locator"))), row["six"]);
    EXPECT_EQ(toUtf8(completedTo(10, row.text("locator"))), row["ten"]);
}

INSTANTIATE_TEST_SUITE_P(Rows, CompletedToTest,
                         testing::ValuesIn(test::readTable("locator_completed.tsv")),
                         test::testName);

TEST(LocatorGrid, DividesTheWorld) {
    EXPECT_EQ(18 * fieldLongitude, 360);
    EXPECT_EQ(18 * fieldLatitude, 180);
    EXPECT_EQ(squareLongitude, 2);
    EXPECT_EQ(squareLatitude, 1);
    EXPECT_EQ(subsquaresPerDegreeLongitude, 12); // 5 minutes
    EXPECT_EQ(subsquaresPerDegreeLatitude, 24);  // 2.5 minutes
}

} // namespace

} // namespace orbisgrid
