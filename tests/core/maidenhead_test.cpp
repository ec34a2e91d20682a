#include "core/maidenhead.h"
#include "core/runtime_error.h"
#include "tests/support/table.h"

namespace orbisgrid {

namespace {

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
    try {
        Maiden2World(locator);
        FAIL() << "nothing was raised";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.code(), RuntimeError::invalidProcedureCall);
    }
}

} // namespace

} // namespace orbisgrid
