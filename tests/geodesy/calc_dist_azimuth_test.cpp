#include "core/number_text.h"
#include "geodesy/calc_dist_azimuth.h"
#include "geodesy/great_circle.h"
#include "tests/support/table.h"

namespace orbisgrid {

namespace {

using test::Row;

class CalcDistAzimuthTest : public testing::TestWithParam<Row> {};

TEST_P(CalcDistAzimuthTest, LeavesItsTexts) {
    const Row& row = GetParam();
    FormTexts texts;
    CalcDistAzimuth(row.text("home"), row.text("target"), texts);
    EXPECT_EQ(toUtf8(texts.DistText), row["DistText"]);
    EXPECT_EQ(toUtf8(texts.AzimuthText), row["AzimuthText"]);
    EXPECT_EQ(toUtf8(texts.LonText), row["LonText"]);
    EXPECT_EQ(toUtf8(texts.LatText), row["LatText"]);
    EXPECT_EQ(shownMiles(leadingNumber(texts.DistText)), row.number("miles"));
}

INSTANTIATE_TEST_SUITE_P(Rows, CalcDistAzimuthTest,
                         testing::ValuesIn(test::readTable("great_circle.tsv")), test::testName);

TEST(CalcDistAzimuth, LeavesTheOtherTextsOnARefusal) {
    for (const auto& [home, target] : {std::pair{u"JO20ay", u"JO20aw"}, {u"JO20aw", u"SA00aa"}}) {
        FormTexts texts{u"1", u"2", u"3", u"4"};
        CalcDistAzimuth(home, target, texts);
        EXPECT_EQ(texts.DistText, u"-1");
        EXPECT_EQ(texts.LonText, u"2");
        EXPECT_EQ(texts.LatText, u"3");
        EXPECT_EQ(texts.AzimuthText, u"4");
    }
}

} // namespace

} // namespace orbisgrid
