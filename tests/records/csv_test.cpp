#include "records/csv.h"
#include "tests/records/read_all.h"
#include "tests/support/table.h"

namespace orbisgrid {

namespace {

using test::Row;

std::string described(const Record& record) {
    std::string text = record.isData ? "" : "passes ";
    for (const Field& field : record.fields) {
        text.append("[").append(field.bytes);
        if (field.bytes.starts_with('"'))
            appendUnquoted(text += '=', field);
        text += ']';
    }
    return text;
}

std::string readTableOf(std::string_view bytes, std::size_t size, char separator) {
    return test::readAll(
        bytes, size, [&](RecordWindow& window) { return CsvReader(window, separator); }, described);
}

class CsvReaderTest : public testing::TestWithParam<Row> {};

TEST_P(CsvReaderTest, TakesRowsHoweverTheyCome) {
    const Row& row = GetParam();
    for (const std::size_t size : test::pieceSizes)
        EXPECT_EQ(readTableOf(row["bytes"], size, ','), row["records"]) << "in pieces of " << size;
}

INSTANTIATE_TEST_SUITE_P(Rows, CsvReaderTest, testing::ValuesIn(test::readTable("records_csv.tsv")),
                         test::testName);

TEST(CsvReader, TakesTabsForTsv) {
    EXPECT_EQ(readTableOf("a,b\tc\n\"1\t2\"\t3\n", 1, '\t'),
              "1: passes [a,b][c] / 2: [\"1\t2\"=1\t2][3]");
}

TEST(CsvReader, LosesNoByte) {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte)
        bytes.append(1, static_cast<char>(byte)).append(1, byte % 3 == 0 ? ',' : 'x');
    readTableOf(bytes, 5, ','); // which compares the bytes
}

} // namespace

} // namespace orbisgrid
