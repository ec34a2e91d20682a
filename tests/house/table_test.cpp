#include "tests/support/table.h"

#include <stdexcept>
#include <string>

namespace orbisgrid::test {

namespace {

TEST(TableReader, ReadsNamedRows) {
    const std::vector<Row> rows = readTableText(
        "# comment\n\nname\tkm\tshown\nfirst\t\" a\\tb\\\"\"\t4\nsecond\tx\tyes\n", "t.tsv");
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0].name, "first");
    EXPECT_EQ(rows[0]["km"], " a\tb\"");
    EXPECT_EQ(rows[0].number("shown"), 4);
    EXPECT_EQ(rows[0].place, "t.tsv:4");
    EXPECT_TRUE(rows[1].flag("shown"));
    EXPECT_THROW(rows[0].flag("shown"), std::runtime_error);
    EXPECT_THROW(rows[1].number("shown"), std::exception);
    EXPECT_THROW(rows[0]["miles"], std::runtime_error);
}

struct BadContent {
    const char* what;
    const char* content;
};

class BadTable : public testing::TestWithParam<BadContent> {};

/// Each one is refused for its own reason: the first line of a message says where.
TEST_P(BadTable, IsRefused) {
    try {
        readTableText(GetParam().content, "t.tsv");
        FAIL() << "was read";
    } catch (const std::runtime_error& error) {
        EXPECT_NE(std::string(error.what()).find(GetParam().what), std::string::npos)
            << error.what();
    }
}

INSTANTIATE_TEST_SUITE_P(
    Contents, BadTable,
    testing::Values(BadContent{"no rows", ""}, BadContent{"no rows", "# only a comment\n"},
                    BadContent{"no rows", "name\ta\tb\n"},
                    BadContent{"a header begins", "case\ta\tb\nrow\t1\t2\n"},
                    BadContent{"a header begins", "name\nrow\n"},
                    BadContent{"repeated column", "name\ta\ta\nrow\t1\t2\n"},
                    BadContent{"repeated column", "name\ta\t\nrow\t1\t2\n"},
                    BadContent{"2 columns, not 3", "name\ta\tb\nragged\t1\n"},
                    BadContent{"4 columns, not 3", "name\ta\tb\nragged\t1\t2\t3\n"},
                    BadContent{"repeated name", "name\ta\tb\n\t1\t2\n"},
                    BadContent{"repeated name: same", "name\ta\nsame\t1\nsame\t2\n"},
                    BadContent{"the same row as: one", "name\ta\tb\none\t1\t2\ntwo\t1\t2\n"},
                    BadContent{"bad quotes", "name\ta\nquote\t\"a\n"},
                    BadContent{"bad quotes", "name\ta\nquote\t\"a\"x\n"},
                    BadContent{"unknown escape", "name\ta\nescape\t\"\\q\"\n"}));

TEST(TableReader, RefusesAMissingFile) {
    EXPECT_THROW(readTable("no_such_file.tsv"), std::runtime_error);
}

} // namespace

} // namespace orbisgrid::test
