#include "batch/batch_run.h"
#include "batch/distance.h"
#include "tests/support/in_process.h"
#include "tests/support/pieces.h"
#include "tests/support/table.h"

#include <cerrno>

namespace orbisgrid {

namespace {

using test::BatchResult;
using test::Pieces;
using test::Row;
using test::runBatch;

/// Takes so many writes and fails then.
class FailingSink : public ByteSink {
public:
    FailingSink(int writes, int error)
        : m_left(writes)
        , m_error(error) {}

    int write(std::string_view bytes) override {
        written += bytes;
        return m_left-- > 0 ? 0 : m_error;
    }

    int finish() override { return m_left > 0 ? 0 : m_error; }

    std::string written;

private:
    int m_left;
    int m_error;
};

class BatchRunTest : public testing::TestWithParam<Row> {};

TEST_P(BatchRunTest, LeavesTheSameHoweverTheListComes) {
    const Row& row = GetParam();
    for (const std::size_t size : {1U, 2U, 5U, 65536U}) {
        const BatchResult result = runBatch(row["arguments"], row["bytes"], row["list"], size);
        EXPECT_EQ(result.output, row["output"]) << "in pieces of " << size;
        EXPECT_EQ(result.messages, row["messages"]) << "in pieces of " << size;
        EXPECT_EQ(result.status, row.number("status"));
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, BatchRunTest, testing::ValuesIn(test::readTable("batch_runs.tsv")),
                         test::testName);

TEST(BatchRun, GroupsTheDigitsOfItsClosingLine) {
    std::string list;
    for (int i = 0; i < 1234; ++i)
        list += i % 300 == 0 ? "JO2? x\n" : "JO20 FN42\n";
    const BatchResult result = runBatch("distance", list, "list");
    EXPECT_TRUE(result.messages.ends_with("\n1,234 lines, 5 refused\n")) << result.messages;
    EXPECT_EQ(result.status, 1);
}

TEST(BatchRun, ShowsNoControlCharacters) {
    const BatchResult result =
        runBatch("distance --home JO20 --input lines", "\x1b[2J\x7Fö\n", "a\nb");
    EXPECT_TRUE(result.messages.starts_with("a?b:1: Invalid locator! (?[2J?ö)\n"))
        << result.messages;
    EXPECT_EQ(runBatch("distance --home JO20 --input lines", "\xC2\x80\xC2\x9F\xC2\xA0\xC2", "a")
                  .messages,
              "a:1: Invalid locator! (?\?\xC2\xA0\xC2)\n1 line, 1 refused\n")
        << "as UTF-8 has those beyond ASCII";
}

TEST(BatchRun, CutsWhatIsNoUtf8AnywhereClose) {
    const std::string line(70, '\x80');
    EXPECT_EQ(runBatch("distance --home JO20 --input lines", line, "a").messages,
              "a:1: Invalid locator! (" + line.substr(0, 57) + "...)\n1 line, 1 refused\n");
}

TEST(BatchRun, ShowsNoZeroBytes) {
    EXPECT_EQ(
        runBatch("distance --home JO20 --input lines", std::string_view("J\0\n", 3), "a").messages,
        "a:1: Invalid locator! (J?)\n1 line, 1 refused\n");
}

TEST(BatchRun, SaysWhichShareOfTheBytesIsDone) {
    FailingSink output(1000, 0), messages(1000, 0);
    std::string shown;
    std::chrono::steady_clock::time_point now;
    Progress progress([&](const std::string& line) { shown = line; },
                      [&] { return now += std::chrono::seconds(2); });
    progress.setTotal(20);
    DistanceTask task({"JO20", false, false});
    BatchRun run({}, task, {output, messages}, progress);
    Pieces pieces("FN42\nFN42\n", 5);
    run.process(pieces, "list");
    EXPECT_TRUE(shown.starts_with("\r\x1b[K50 %, 2 lines, ")) << shown;
}

TEST(BatchRun, AMarkAtTheBeginningIsNoPartOfTheFirstName) {
    const std::string mark = "\xEF\xBB\xBF";
    const std::string results = ",5625,3513,292,50.47917,4.958333,42.47917,-71.04166";
    const auto distances = [&](const std::string& list, const char* name) {
        return runBatch("distance --home JO20", mark + list, name).output;
    };
    for (const char* name : {"a.csv", "a"}) {
        const std::string output = distances("locator,b\r\nFN42,x\r\n", name);
        EXPECT_TRUE(output.starts_with(mark + "locator,b,distance_km,")) << output;
        EXPECT_TRUE(output.ends_with("\r\nFN42,x" + results + "\r\n")) << output;
    }
    EXPECT_EQ(distances("<GRIDSQUARE:4>FN42<EOR>", "a"),
              mark + "<GRIDSQUARE:4>FN42<DISTANCE:4>5625 <APP_ORBISGRID_AZIMUTH:3>292 <EOR>");
    EXPECT_TRUE(distances("FN42", "a").starts_with(mark + "FN42\t5625\t"));
}

TEST(BatchRun, ALineThatIsNoneEndsIt) {
    const BatchResult result =
        runBatch("distance --home JO20", "FN42\n" + std::string(5'000'000, 'x'), "list");
    EXPECT_EQ(result.messages, "orbisgrid-batch: list: line 2 is too long to be one\n");
    EXPECT_EQ(result.status, 2);
    EXPECT_TRUE(result.output.starts_with("FN42\t5625\t")) << "what came before is not lost";
}

TEST(BatchRun, AFailureWhileReadingEndsItWithTheReason) {
    for (const char* format : {"--input lines ", ""}) {
        Pieces pieces("FN42\n", 3);
        pieces.failAtTheEnd(EIO);
        const BatchResult result =
            runBatch("distance --home JO20 " + std::string(format), pieces, "list");
        EXPECT_EQ(result.messages, "orbisgrid-batch: list: Input/output error\n");
        EXPECT_EQ(result.status, 2);
        EXPECT_TRUE(result.output.starts_with("FN42\t5625\t"));
    }
    Pieces pieces("what is it", 3);
    pieces.failAtTheEnd(EIO);
    EXPECT_EQ(runBatch("distance --home JO20", pieces, "list").messages,
              "orbisgrid-batch: list: Input/output error\n");
}

// The sinks --------------------------------------------------------------------------------------

/// What a run on `lines` lines says and gives where the output takes so many writes.
std::pair<std::string, Status> runInto(FailingSink& output, int lines) {
    FailingSink messages(1000, 0);
    Progress progress({}, std::chrono::steady_clock::now);
    DistanceTask task({"JO20", false, false});
    RunOptions options;
    options.input = Format::lines;
    BatchRun run(options, task, {output, messages}, progress);
    std::string list;
    for (int i = 0; i < lines; ++i)
        list += "FN42\n";
    Pieces pieces(list, 65536);
    run.process(pieces, "list");
    const Status status = run.finish();
    return {messages.written, status};
}

TEST(BatchRun, WhatCannotBeWrittenEndsItWithTheReason) {
    for (const int writes : {0, 1, 2, 3, 4, 5, 6}) {
        FailingSink output(writes, ENOSPC);
        const auto [said, status] = runInto(output, 50'000);
        EXPECT_EQ(said, "orbisgrid-batch: standard output: No space left on device\n") << writes;
        EXPECT_EQ(status, Status::failed);
    }
    FailingSink output(1, ENOSPC);
    EXPECT_EQ(runInto(output, 1).second, Status::failed) << "only closing fails";
}

TEST(BatchRun, OutputThatFailsBetweenTwoListsIsSaidOnce) {
    FailingSink output(0, ENOSPC), messages(1000, 0);
    Progress progress({}, std::chrono::steady_clock::now);
    DistanceTask task({"JO20", false, false});
    const RunOptions options;
    BatchRun run(options, task, {output, messages}, progress);
    Pieces first("FN42", 65536), second("FN42", 65536);
    EXPECT_TRUE(run.process(first, "one")) << "nothing is written before the next list is read";
    EXPECT_FALSE(run.process(second, "two"));
    EXPECT_EQ(run.finish(), Status::failed);
    EXPECT_EQ(messages.written, "orbisgrid-batch: standard output: No space left on device\n");
}

TEST(BatchRun, OutputThatFailsAtTheVeryEndIsSaid) {
    FailingSink output(0, ENOSPC), messages(1000, 0);
    Progress progress({}, std::chrono::steady_clock::now);
    DistanceTask task({"JO20", false, false});
    BatchRun run({}, task, {output, messages}, progress);
    Pieces pieces("FN42", 65536); // without a line end: its answer waits until all is read
    EXPECT_TRUE(run.process(pieces, "list"));
    EXPECT_EQ(run.finish(), Status::failed);
    EXPECT_EQ(messages.written, "orbisgrid-batch: standard output: No space left on device\n");
}

/// How often the line of progress is taken away while two lines come one by one.
int erasures(const std::string& list, bool isOutputShown) {
    FailingSink output(1000, 0), messages(1000, 0);
    int count = 0;
    std::chrono::steady_clock::time_point now;
    Progress progress([&](const std::string& line) { count += line == "\r\x1b[K" ? 1 : 0; },
                      [&] { return now += std::chrono::seconds(2); });
    DistanceTask task({"JO20", false, false});
    RunOptions options;
    options.input = Format::lines;
    options.isOutputShown = isOutputShown;
    BatchRun run(options, task, {output, messages}, progress);
    Pieces pieces(list, list.size() / 2);
    run.process(pieces, "list");
    run.finish();
    return count;
}

TEST(BatchRun, ProgressMakesWayForWhatIsWrittenOnItsTerminal) {
    EXPECT_EQ(erasures("FN42\nFN42\n", true), 2) << "for each result";
    EXPECT_EQ(erasures("FN42\nFN42\n", false), 1) << "at the end: results go elsewhere";
    EXPECT_EQ(erasures("JO2?\nJO2?\n", false), 2) << "for each message";
    EXPECT_EQ(erasures("JO2?\nJO2?\n", true), 2) << "for both at once";
    EXPECT_EQ(erasures("", true), 1) << "at the end: nothing came";
}

TEST(BatchRun, SaysMoreThanABlockOfMessages) {
    std::string list, said;
    for (int i = 1; i <= 60'000; ++i) {
        list += "x\n";
        said.append("list:").append(std::to_string(i)).append(": Invalid locator! (x)\n");
    }
    const BatchResult result = runBatch("distance --home JO20", list, "list", list.size());
    EXPECT_TRUE(result.messages == said + "60,000 lines, 60,000 refused\n");
}

TEST(BatchRun, AFirstLineOfManyBytesIsGuessedFromThem) {
    const std::string line = std::string(9000, ' ') + "FN42";
    EXPECT_EQ(runBatch("distance --home JO20", line, "list").output,
              line + "\t5625\t3513\t292\t50.47917\t4.958333\t42.47917\t-71.04166");
}

TEST(BatchRun, NobodyIsToldOfABrokenPipe) {
    for (const int writes : {0, 1, 2, 3, 4, 5, 6}) {
        FailingSink output(writes, EPIPE);
        const auto [said, status] = runInto(output, 50'000);
        EXPECT_EQ(said, "");
        EXPECT_EQ(status, Status::brokenPipe);
    }
}

TEST(BatchRun, ALineThatComesIsAnsweredBeforeTheNextIsWaitedFor) {
    FailingSink output(1000, 0), messages(1000, 0);
    Progress progress({}, std::chrono::steady_clock::now);
    DistanceTask task({"JO20", false, false});
    const RunOptions options;
    BatchRun run(options, task, {output, messages}, progress);
    std::size_t before = 0;
    bool isAnswered = true;
    const std::string list = "FN42\nFN42\nFN4?\n";
    int piece = 0;
    Pieces pieces(list, [&]() -> std::size_t {
        if (piece++ > 0)
            isAnswered = isAnswered && output.written.size() > before;
        before = output.written.size();
        return 5;
    });
    EXPECT_TRUE(run.process(pieces, "list"));
    EXPECT_TRUE(isAnswered);
    EXPECT_EQ(messages.written, "list:3: Invalid locator! (FN4?)\n") << "before the end of the run";
}

} // namespace

} // namespace orbisgrid
