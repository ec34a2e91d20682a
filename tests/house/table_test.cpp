#include "tests/support/table.h"

#include <stdexcept>

namespace orbisgrid::test {

namespace {

TEST(TableReader, ReadsNamedRows) {
    const std::vector<Row> rows =
        readTableText("# comment\n\nfirst\t\" a\\tb\\\"\"\t4\nsecond\tx\tyes\n", "t.tsv", 2);
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0].name, "first");
    EXPECT_EQ(rows[0].fields[0], " a\tb\"");
    EXPECT_EQ(rows[0].number(1), 4);
    EXPECT_EQ(rows[0].place, "t.tsv:3");
    EXPECT_TRUE(rows[1].flag(1));
    EXPECT_THROW(rows[0].flag(1), std::runtime_error);
    EXPECT_THROW(rows[1].number(1), std::exception);
}

class BadTable : public testing::TestWithParam<const char*> {};

TEST_P(BadTable, IsRefused) {
    EXPECT_THROW(readTableText(GetParam(), "t.tsv", 2), std::runtime_error);
}

INSTANTIATE_TEST_SUITE_P(Contents, BadTable,
                         testing::Values("", "# only a comment\n", "ragged\ta\n",
                                         "ragged\ta\tb\tc\n", "\ta\tb\n",
                                         "same\ta\tb\nsame\tc\td\n", "quote\t\"a\tb\n",
                                         "quote\t\"a\"x\tb\n", "escape\t\"\\q\"\tb\n"));

TEST(TableReader, RefusesAMissingFile) {
    EXPECT_THROW(readTable("no_such_file.tsv", 2), std::runtime_error);
}

} // namespace

} // namespace orbisgrid::test
