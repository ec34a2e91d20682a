#include "aprs/uiview.h"
#include "core/number_text.h"
#include "tests/support/table.h"

namespace orbisgrid {

namespace {

using test::Row;

class UIViewWriteTest : public testing::TestWithParam<Row> {};

TEST_P(UIViewWriteTest, WritesSecondsBehindThePoint) {
    const Row& row = GetParam();
    const WholeDms lat{row.number(0), row.number(1), row.number(2), false};
    const WholeDms lon{row.number(4), row.number(5), row.number(6), false};
    EXPECT_EQ(toUtf8(uiViewText(lat, row.text(3), lon, row.text(7))), row.fields[8]);
}

INSTANTIATE_TEST_SUITE_P(Rows, UIViewWriteTest,
                         testing::ValuesIn(test::readTable("uiview_write.tsv", 9)), test::testName);

class UIViewReadTest : public testing::TestWithParam<Row> {};

TEST_P(UIViewReadTest, ReadsByPosition) {
    const Row& row = GetParam();
    const auto position = readUIViewText(row.text(0));
    ASSERT_EQ(position.has_value(), row.fields[1] != "-");
    if (!position)
        return;
    EXPECT_EQ(toUtf8(plainText(position->latitude)), row.fields[1]);
    EXPECT_EQ(toUtf8(plainText(position->longitude)), row.fields[2]);
    EXPECT_EQ(position->isSouth, row.flag(3));
    EXPECT_EQ(position->isWest, row.flag(4));
}

INSTANTIATE_TEST_SUITE_P(Rows, UIViewReadTest,
                         testing::ValuesIn(test::readTable("uiview_read.tsv", 5)), test::testName);

} // namespace

} // namespace orbisgrid
