#include "map/caption.h"

#include "tests/support/table.h"

namespace orbisgrid {

namespace {

using test::Row;

class CaptionTest : public testing::TestWithParam<Row> {};

TEST_P(CaptionTest, IsThatOfTheRow) {
    const Row& row = GetParam();
    const Text home = row.text("home"), target = row.text("target");
    const auto caption = pathCaption({home, target});
    EXPECT_EQ(caption ? toUtf8(*caption) : "-", row["caption"]);
}

INSTANTIATE_TEST_SUITE_P(Rows, CaptionTest, testing::ValuesIn(test::readTable("map_caption.tsv")),
                         test::testName);

std::string placeText(Position home, Position place) {
    return toUtf8(placeCaption(home, place));
}

TEST(PlaceCaption, IsWhatCalculateWouldShow) {
    const Position home = pointOf(u"JO20aw");
    EXPECT_EQ(placeText(home, pointOf(u"FN42aa")), "FN42AA: 5637 km, 3520 miles, 291°");
    EXPECT_EQ(placeText(home, pointOf(u"QF56od")), "QF56OD: 16749 km, 10461 miles, 67°");
}

TEST(PlaceCaption, HomeHasNoAzimuth) {
    const Position home = pointOf(u"JO20aw");
    EXPECT_EQ(placeText(home, home), "JO20AW: 0 km, 0 miles");
}

TEST(PlaceCaption, TheDateLineBelongsToTheWest) {
    const std::string caption = placeText({0.01, 179}, {0.01, 180});
    EXPECT_TRUE(caption.starts_with("AJ00AA: ")) << caption;
    EXPECT_EQ(caption, placeText({0.01, 179}, {0.01, -180}));
}

TEST(PlaceCaption, ThePolesHaveLocators) {
    EXPECT_TRUE(placeText({0, 0}, {-90, 0}).starts_with("JA00AA: "));
    EXPECT_TRUE(placeText({0, 0}, {90, 0}).starts_with("JS00AA: "));
}

} // namespace

} // namespace orbisgrid
