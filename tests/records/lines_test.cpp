#include "records/lines.h"
#include "tests/records/read_all.h"
#include "tests/support/table.h"

namespace orbisgrid {

namespace {

using test::Row;

std::string described(const Record& record) {
    return (record.isData ? "" : "passes ") + std::string(record.content);
}

class LineReaderTest : public testing::TestWithParam<Row> {};

TEST_P(LineReaderTest, TakesLinesHoweverTheyCome) {
    const Row& row = GetParam();
    for (const std::size_t size : test::pieceSizes) {
        EXPECT_EQ(test::readAll(
                      row["bytes"], size, [](RecordWindow& window) { return LineReader(window); },
                      described),
                  row["records"])
            << "in pieces of " << size;
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, LineReaderTest,
                         testing::ValuesIn(test::readTable("records_lines.tsv")), test::testName);

std::string wordsAsText(std::string_view line) {
    const Words words = wordsOf(line);
    return std::to_string(words.count) + ": " + std::string(words.first[0]) + "|" +
           std::string(words.first[1]);
}

TEST(WordsOf, StandBetweenBlanksTabsAndOneComma) {
    EXPECT_EQ(wordsAsText(""), "0: |");
    EXPECT_EQ(wordsAsText(" \t"), "0: |");
    EXPECT_EQ(wordsAsText("JO20"), "1: JO20|");
    EXPECT_EQ(wordsAsText(" JO20  FN42\t"), "2: JO20|FN42");
    EXPECT_EQ(wordsAsText("JO20,FN42"), "2: JO20|FN42");
    EXPECT_EQ(wordsAsText("JO20 ,\tFN42"), "2: JO20|FN42");
    EXPECT_EQ(wordsAsText("JO20\tFN42 x"), "3: JO20|FN42");
}

TEST(WordsOf, CountAnEmptyOneBesideAComma) {
    EXPECT_EQ(wordsAsText("JO20,"), "2: JO20|");
    EXPECT_EQ(wordsAsText(",FN42"), "2: |FN42");
    EXPECT_EQ(wordsAsText("JO20,,FN42"), "3: JO20|");
    EXPECT_EQ(wordsAsText(","), "2: |");
}

} // namespace

} // namespace orbisgrid
