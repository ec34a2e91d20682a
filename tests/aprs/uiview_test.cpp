#include "aprs/uiview.h"
#include "core/number_text.h"
#include "tests/support/table.h"

namespace orbisgrid {

namespace {

using test::Row;

class UIViewWriteTest : public testing::TestWithParam<Row> {};

TEST_P(UIViewWriteTest, WritesSecondsBehindThePoint) {
    const Row& row = GetParam();
    const WholeDms lat{row.number("lat deg"), row.number("lat min"), row.number("lat sec"), false};
    const WholeDms lon{row.number("lon deg"), row.number("lon min"), row.number("lon sec"), false};
    EXPECT_EQ(toUtf8(uiViewText(lat, row.text("lat letter"), lon, row.text("lon letter"))),
              row["text"]);
}

INSTANTIATE_TEST_SUITE_P(Rows, UIViewWriteTest,
                         testing::ValuesIn(test::readTable("uiview_write.tsv")), test::testName);

class UIViewReadTest : public testing::TestWithParam<Row> {};

TEST_P(UIViewReadTest, ReadsByPosition) {
    const Row& row = GetParam();
    const auto position = readUIViewText(row.text("text"));
    ASSERT_EQ(position.has_value(), row["latitude"] != "-");
    if (!position)
        return;
    EXPECT_EQ(toUtf8(plainText(static_cast<float>(position->position.latitude))), row["latitude"]);
    EXPECT_EQ(toUtf8(plainText(static_cast<float>(position->position.longitude))),
              row["longitude"]);
    EXPECT_EQ(position->isSouth, row.flag("south"));
    EXPECT_EQ(position->isWest, row.flag("west"));
}

INSTANTIATE_TEST_SUITE_P(Rows, UIViewReadTest,
                         testing::ValuesIn(test::readTable("uiview_read.tsv")), test::testName);

} // namespace

} // namespace orbisgrid
