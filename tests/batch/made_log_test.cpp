#include "tests/support/in_process.h"
#include "tests/support/made_log.h"
#include "tests/support/pieces.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>

namespace orbisgrid {

namespace {

using test::BatchResult;
using test::LogKind;
using test::madeLog;
using test::runBatch;

/// How long the text "<NAME:LENGTH>VALUE" is that `log` has at `at`; 0 where it is something else.
std::size_t lengthOfAdded(std::string_view log, std::size_t at, std::string_view name) {
    const std::string_view text = log.substr(at, 80);
    if (!text.starts_with(name))
        return 0;
    std::size_t length = 0, end = name.size();
    for (; end < text.size() && text[end] >= '0' && text[end] <= '9'; ++end)
        length = length * 10 + static_cast<std::size_t>(text[end] - '0');
    return end < text.size() && text[end] == '>' ? end + 1 + length : 0;
}

/// `log` without the fields that were added, and how many they were.
std::string withoutAdded(std::string_view log, int& count) {
    std::string result;
    for (std::size_t at = 0; at < log.size();) {
        std::size_t length = 0;
        if (log[at] == '<') {
            length = lengthOfAdded(log, at, "<DISTANCE:") +
                     lengthOfAdded(log, at, "<APP_ORBISGRID_AZIMUTH:");
        }
        if (length == 0) {
            result += log[at++];
            continue;
        }
        ++count;
        at += length;
        if (at < log.size() && log[at] == ' ')
            ++at; // each has a blank behind it ...
        else
            result.pop_back(); // ... or, at the end of the file, in front
    }
    return result;
}

TEST(MadeLog, LessWhatIsAddedIsWhatCameIn) {
    for (const LogKind kind : {LogKind::plain, LogKind::odd}) {
        const std::string log = madeLog(100'000, kind);
        const BatchResult first =
            runBatch("distance --home JO20 --long-path --quiet", log, "a.adi");
        int added = 0;
        EXPECT_TRUE(withoutAdded(first.output, added) == log) << "too long to be shown";
        EXPECT_GT(added, 150'000);
        EXPECT_EQ(first.status, kind == LogKind::odd ? 1 : 0);
        const BatchResult second =
            runBatch("distance --home JO20 --long-path --quiet", first.output, "a.adi");
        EXPECT_TRUE(second.output == first.output) << "a second run changes something";
    }
}

TEST(MadeLog, HasManyRefusedContactsAndMoreThatPass) {
    const BatchResult result =
        runBatch("distance --home JO20", madeLog(1000, LogKind::odd), "a.adi");
    const std::size_t closing = result.messages.rfind('\n', result.messages.size() - 2);
    EXPECT_TRUE(
        std::string_view(result.messages).substr(closing + 1).starts_with("1,002 contacts, "))
        << result.messages.substr(closing + 1);
}

// However a list comes ---------------------------------------------------------------------------

std::string madeTable(std::size_t rows) {
    std::string table = "\xEF\xBB\xBF\"call\",locator,remark\r\n";
    for (std::size_t i = 0; i < rows; ++i) {
        table.append("x").append(std::to_string(i)).append(",\"");
        table.append(test::madeLocator(i * 7919)).append("\"");
        table += i % 3 == 0 ? ",\"a\r\nb, \"\"c\"\"\"\r\n" : i % 3 == 1 ? ",1\"2\n" : "\n";
    }
    return table;
}

std::string madeLines(std::size_t lines) {
    std::string list;
    for (std::size_t i = 0; i < lines; ++i)
        list.append(i % 50 == 0 ? "# comment\r\n" : test::madeLocator(i * 7919)).append("\n");
    return list;
}

TEST(AnySplit, GivesTheSameOutput) {
    struct List {
        const char* name;
        std::string bytes;
    };

    const List lists[]{{"a.adi", madeLog(1000, LogKind::odd)},
                       {"a", madeLog(200, LogKind::odd)},
                       {"a.csv", madeTable(3000)},
                       {"a", madeTable(300)},
                       {"a", madeLines(10'000)}};
    std::mt19937 random(20155);
    for (const List& list : lists) {
        const BatchResult whole =
            runBatch("distance --home JO20AW", list.bytes, list.name, 1 << 30);
        EXPECT_GT(whole.output.size(), list.bytes.size());
        for (const std::size_t largest : {1U, 2U, 16U, 300U, 65'536U}) {
            test::Pieces pieces(list.bytes, [&] { return 1 + random() % largest; });
            const BatchResult split = runBatch("distance --home JO20AW", pieces, list.name);
            EXPECT_TRUE(split.output == whole.output) << list.name << " up to " << largest;
            EXPECT_TRUE(split.messages == whole.messages) << list.name << " up to " << largest;
        }
    }
}

} // namespace

} // namespace orbisgrid
