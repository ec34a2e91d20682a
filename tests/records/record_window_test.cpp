#include "records/lines.h"
#include "tests/support/pieces.h"

#include <gtest/gtest.h>

#include <vector>

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
    EXPECT_EQ(window.fetchUntil(3), std::nullopt);
    EXPECT_EQ(window.bytes(), "abc") << "and no more";
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

TEST(RecordWindow, ReadsMoreAtATimeAsItGoesOn) {
    std::vector<std::size_t> rooms;
    const std::string list(1'000'000, '\n');

    class Watched : public ByteSource {
    public:
        Watched(ByteSource& source, std::vector<std::size_t>& seen)
            : m_source(source)
            , m_seen(seen) {}

        std::optional<std::size_t> read(std::span<char> room) override {
            m_seen.push_back(room.size());
            return m_source.read(room);
        }

    private:
        ByteSource& m_source;
        std::vector<std::size_t>& m_seen;
    };

    Pieces pieces(list, list.size());
    Watched watched(pieces, rooms);
    RecordWindow window(watched);
    LineReader reader(window);
    Record record;
    while (reader.next(record) == Reading::record) {
    }
    ASSERT_GT(rooms.size(), 6U);
    EXPECT_EQ(rooms[0], 4096U) << "a short list needs no more";
    EXPECT_EQ(rooms[1], 8192U);
    EXPECT_EQ(rooms.back(), 131072U);
    EXPECT_LT(rooms.size(), 15U);
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
