#include "panels/command_line.h"
#include "tests/support/recorded_messages.h"
#include "tests/support/table.h"

#include <map>

namespace orbisgrid {

namespace {

using test::RecordedMessages;
using test::Row;

class CommandLineTest : public testing::TestWithParam<Row> {};

TEST_P(CommandLineTest, AsksForAJob) {
    const Row& row = GetParam();
    const std::map<std::string, CommandLine::Job> jobs{{"none", CommandLine::Job::none},
                                                       {"convert", CommandLine::Job::convert},
                                                       {"distance", CommandLine::Job::distance}};
    const CommandLine commandLine = readCommandLine(row.text("arguments"));
    EXPECT_EQ(commandLine.job, jobs.at(row["job"]));
    EXPECT_EQ(toUtf8(commandLine.first), row["first"]);
    EXPECT_EQ(toUtf8(commandLine.second), row["second"]);
}

INSTANTIATE_TEST_SUITE_P(Rows, CommandLineTest,
                         testing::ValuesIn(test::readTable("command_line.tsv")), test::testName);

TEST(JoinedArguments, PutsABlankBetween) {
    EXPECT_EQ(joinedArguments({}), u"");
    EXPECT_EQ(joinedArguments({"jo20", "jo21"}), u"jo20 jo21");
    EXPECT_EQ(joinedArguments({"", "jo21"}), u" jo21");
}

JobResult run(TextView arguments, RecordedMessages& messages) {
    LocatorConverterForm form;
    return runJob(readCommandLine(arguments), form, messages);
}

TEST(RunJob, ConvertCopiesTheLocatorAndPrintsEverything) {
    RecordedMessages messages;
    const JobResult result = run(u"-cjo20aw", messages);
    EXPECT_FALSE(result.refused);
    EXPECT_EQ(result.clipboard, u"Maidenhead Locator:JO20AW\r\n");
    EXPECT_TRUE(result.printed.starts_with(u"Maidenhead Locator:JO20AW\r\nDecimal Latitude: "));
    EXPECT_TRUE(result.printed.ends_with(u"APRS Compressed:=/4drbOOx2-  B"));
}

TEST(RunJob, DistanceCopiesAndPrintsTheReport) {
    RecordedMessages messages;
    const JobResult result = run(u"jo20aw jo21", messages);
    EXPECT_FALSE(result.refused);
    EXPECT_EQ(result.clipboard, result.printed);
    EXPECT_TRUE(
        result.printed.starts_with(u"Home locator  :JO20AW\r\nTarget Locator:JO21LL\r\nDistance:"));
}

TEST(RunJob, ARefusalStillFillsTheClipboard) {
    RecordedMessages messages;
    const JobResult convert = run(u"-CJO2", messages);
    EXPECT_TRUE(convert.refused);
    EXPECT_EQ(convert.clipboard, u"Maidenhead Locator:JO2\r\n");
    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].title, u"Input error");
    const JobResult distance = run(u"jo2 jo20", messages);
    EXPECT_TRUE(distance.refused);
    EXPECT_TRUE(distance.clipboard.starts_with(
        u"Home locator  :JO2\r\nTarget Locator:JO20\r\nDistance:0 Km\r\n"));
}

TEST(RunJob, NoneDoesNothing) {
    RecordedMessages messages;
    const JobResult result = run(u"JO20AW", messages);
    EXPECT_FALSE(result.refused);
    EXPECT_EQ(result.clipboard, u"");
    EXPECT_EQ(result.printed, u"");
}

} // namespace

} // namespace orbisgrid
