#include "records/lines.h"
#include "tests/support/pieces.h"

#include <gtest/gtest.h>

#include <random>

namespace orbisgrid {

namespace {

using test::Pieces;

TEST(RecordWindow, ARecordIsAsLongAsItIsUpToTheLongest) {
    for (const std::size_t size : {longestRecord - 1, longestRecord, longestRecord + 70000}) {
        const std::string line = std::string(size, 'x') + "\n";
        Pieces pieces(line, 65536);
        RecordWindow window(pieces);
        LineReader reader(window);
        Record record;
        if (size <= longestRecord) {
            ASSERT_EQ(reader.next(record), Reading::record);
            EXPECT_EQ(record.bytes, line);
        } else {
            EXPECT_EQ(reader.next(record), Reading::tooLong);
        }
    }
}

TEST(RecordWindow, AFailureOfTheSourceIsOne) {
    Pieces pieces("a\nb", 65536);
    pieces.failAtTheEnd(EIO);
    RecordWindow window(pieces);
    LineReader reader(window);
    Record record;
    EXPECT_EQ(reader.next(record), Reading::record);
    EXPECT_EQ(reader.next(record), Reading::unreadable) << "and not the last line";
}

TEST(RecordWindow, TheEndStaysTheEnd) {
    Pieces pieces("a", 1);
    RecordWindow window(pieces);
    LineReader reader(window);
    Record record;
    EXPECT_EQ(reader.next(record), Reading::record);
    EXPECT_EQ(reader.next(record), Reading::end);
    EXPECT_EQ(reader.next(record), Reading::end);
}

TEST(RecordWindow, FetchesAsMuchAsIsWanted) {
    Pieces pieces("abcdefgh", 3);
    RecordWindow window(pieces);
    EXPECT_EQ(window.fetchUntil(4), std::nullopt);
    EXPECT_EQ(window.bytes(), "abcdef");
    EXPECT_FALSE(window.isWhole());
    EXPECT_EQ(window.fetchUntil(100), std::nullopt);
    EXPECT_EQ(window.bytes(), "abcdefgh");
    EXPECT_TRUE(window.isWhole());
    Pieces broken("", 3);
    broken.failAtTheEnd(EIO);
    RecordWindow other(broken);
    EXPECT_EQ(other.fetchUntil(4), Reading::unreadable);
}

TEST(RecordWindow, CountsItsLines) {
    Pieces pieces("a\nb\n\nc", 65536);
    RecordWindow window(pieces);
    ASSERT_EQ(window.fetchUntil(6), std::nullopt);
    EXPECT_EQ(window.line(), 1U);
    window.take(1);
    EXPECT_EQ(window.line(), 1U);
    window.take(4);
    EXPECT_EQ(window.line(), 4U);
    EXPECT_EQ(window.bytes(), "c");
}

} // namespace

} // namespace orbisgrid
