#include "aprs/compressed.h"
#include "tests/support/runtime_error_code.h"
#include "tests/support/table.h"

namespace orbisgrid {

namespace {

using test::Row;

class CompressedTest : public testing::TestWithParam<Row> {};

TEST_P(CompressedTest, EncodesOrRaises) {
    const Row& row = GetParam();
    Text text;
    const auto encode = [&] {
        text = compressedText({row.number("latitude"), row.number("longitude")});
    };
    EXPECT_EQ(test::raisedCode(encode), row.number("error"));
    EXPECT_EQ(toUtf8(text), row["text"]);
}

INSTANTIATE_TEST_SUITE_P(Rows, CompressedTest, testing::ValuesIn(test::readTable("compressed.tsv")),
                         test::testName);

} // namespace

} // namespace orbisgrid
