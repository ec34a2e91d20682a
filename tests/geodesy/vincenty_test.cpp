#include "geodesy/vincenty.h"
#include "tests/support/runtime_error_code.h"
#include "tests/support/table.h"

#include <cmath>
#include <limits>

namespace orbisgrid {

namespace {

using test::Row;

class VincentyTest : public testing::TestWithParam<Row> {};

TEST_P(VincentyTest, AgreesWithTheReference) {
    const Row& row = GetParam();
    const VincentyDistance distance = distVincenty(row.number("lat1"), row.number("lon1"),
                                                   row.number("lat2"), row.number("lon2"));
    EXPECT_NEAR(distance.metres, row.number("metres"), 0.0011);
    EXPECT_EQ(distance.iterationLimitReached, row.flag("limit reached"));
}

INSTANTIATE_TEST_SUITE_P(Rows, VincentyTest, testing::ValuesIn(test::readTable("vincenty.tsv")),
                         test::testName);

TEST(Vincenty, RoundsToMillimetres) {
    EXPECT_EQ(distVincenty(50.937, 4.041, 50.979, 5.958).metres, 134767.616);
}

TEST(Vincenty, RaisesForNoNumber) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(test::raisedCode([&] { (void)distVincenty(nan, 0, 1, 1); }), 6);
    EXPECT_EQ(test::raisedCode([&] { (void)distVincenty(0, nan, 1, 1); }), 6);
}

} // namespace

} // namespace orbisgrid
