#include "records/format.h"
#include "tests/support/table.h"

#include <array>

namespace orbisgrid {

namespace {

using test::Row;

class GuessedFormatTest : public testing::TestWithParam<Row> {};

TEST_P(GuessedFormatTest, LooksAtTheFirstBytes) {
    const Row& row = GetParam();
    const std::array<std::string_view, 2> columns{"gridsquare", "locator"};
    EXPECT_EQ(nameOf(guessedFormat(row["bytes"], columns)), row["format"]);
    EXPECT_EQ(beginsWithPlace(row["bytes"]), row.flag("place"));
}

INSTANTIATE_TEST_SUITE_P(Rows, GuessedFormatTest,
                         testing::ValuesIn(test::readTable("records_format.tsv")), test::testName);

TEST(GuessedFormat, LooksAtNoMoreThanItIsGiven) {
    const std::array<std::string_view, 1> columns{"gridsquare"};
    const std::string_view bytes = "call,gridsquare_ext,other\n";
    EXPECT_EQ(guessedFormat(bytes.substr(0, 15), columns), Format::csv);
    EXPECT_EQ(guessedFormat(bytes, columns), Format::lines);
}

TEST(FormatNamed, KnowsEachByItsName) {
    for (const Format format :
         {Format::lines, Format::csv, Format::tsv, Format::adif, Format::json})
        EXPECT_EQ(formatNamed(nameOf(format)), format);
    EXPECT_EQ(formatNamed("ADIF"), std::nullopt);
    EXPECT_EQ(formatNamed(""), std::nullopt);
}

TEST(FormatOfFile, GoesByTheEndOfItsName) {
    EXPECT_EQ(formatOfFile("log.adi"), Format::adif);
    EXPECT_EQ(formatOfFile("a/b.c/LOG.ADIF"), Format::adif);
    EXPECT_EQ(formatOfFile("list.Csv"), Format::csv);
    EXPECT_EQ(formatOfFile("list.tsv"), Format::tsv);
    EXPECT_EQ(formatOfFile("list.txt"), std::nullopt);
    EXPECT_EQ(formatOfFile(".csv"), std::nullopt) << "a hidden file of this name";
    EXPECT_EQ(formatOfFile("csv"), std::nullopt);
}

TEST(IsColumn, InAnyCaseAndBetweenBlanks) {
    EXPECT_TRUE(isColumn(" GridSquare\t", "gridsquare"));
    EXPECT_TRUE(isColumn("AZ", "az"));
    EXPECT_FALSE(isColumn("gridsquares", "gridsquare"));
    EXPECT_FALSE(isColumn("gridsquar", "gridsquare"));
}

} // namespace

} // namespace orbisgrid
