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
    const auto encode = [&] { text = compressedText(row.number(0), row.number(1)); };
    EXPECT_EQ(test::raisedCode(encode), row.number(3));
    EXPECT_EQ(toUtf8(text), row.fields[2]);
}

INSTANTIATE_TEST_SUITE_P(Rows, CompressedTest,
                         testing::ValuesIn(test::readTable("compressed.tsv", 4)), test::testName);

} // namespace

} // namespace orbisgrid
