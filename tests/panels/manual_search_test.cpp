#include "panels/manual_search.h"
#include "tests/support/table.h"

namespace orbisgrid {

namespace {

using test::Row;

class ManualTextTest : public testing::TestWithParam<Row> {};

TEST_P(ManualTextTest, EndsEachLineWithCrLf) {
    EXPECT_EQ(toUtf8(manualText(GetParam()["bytes of the file"])), GetParam()["text"]);
}

INSTANTIATE_TEST_SUITE_P(Rows, ManualTextTest,
                         testing::ValuesIn(test::readTable("manual_text.tsv")), test::testName);

TEST(ManualText, ReadsBytesThatAreNoUtf8AsTheOlderCodePage) {
    EXPECT_EQ(manualText("50\xB0\n"), u"50°\r\n");
}

TEST(ManualText, KeepsZeroBytes) {
    const std::string bytes("a\0b", 3);
    EXPECT_EQ(manualText(bytes).size(), 5U);
}

/// A find as a row writes it: "what is typed>where it is found".
struct Step {
    std::string typed;
    std::string expected;
};

std::vector<Step> stepsOf(const std::string& field) {
    std::vector<Step> steps;
    for (std::size_t start = 0; start <= field.size();) {
        const std::size_t end = std::min(field.find('|', start), field.size());
        const std::size_t arrow = field.find('>', start);
        if (arrow >= end)
            throw std::runtime_error("a find without its place: " + field);
        steps.push_back(
            {field.substr(start, arrow - start), field.substr(arrow + 1, end - arrow - 1)});
        start = end + 1;
    }
    return steps;
}

std::string outcomeText(const ManualFind& find) {
    switch (find.outcome) {
    case ManualFind::Outcome::cancelled:
        return "cancel";
    case ManualFind::Outcome::nothingFound:
        return "none";
    case ManualFind::Outcome::found:
        break;
    }
    return std::to_string(find.position);
}

class ManualSearchTest : public testing::TestWithParam<Row> {};

TEST_P(ManualSearchTest, FindsStepByStep) {
    const Row& row = GetParam();
    ManualSearch search(row.text("manual"));
    for (const Step& step : stepsOf(row["finds"])) {
        const Text typed = step.typed == "*" ? search.SearchString() : fromUtf8(step.typed);
        const ManualFind find = search.DoTheSearch(typed);
        EXPECT_EQ(outcomeText(find), step.expected) << "typed: " << step.typed;
        const bool isFound = find.outcome == ManualFind::Outcome::found;
        EXPECT_EQ(search.Found(), isFound);
        EXPECT_EQ(find.length, isFound ? typed.size() : 0U);
    }
    EXPECT_EQ(toUtf8(search.SearchString()), row["SearchString"]);
    EXPECT_EQ(toUtf8(search.LastSearch()), row["LastSearch"]);
    EXPECT_EQ(static_cast<double>(search.SearchPos()), row.number("SearchPos"));
    EXPECT_EQ(static_cast<double>(search.NextStart()), row.number("NextStart"));
}

INSTANTIATE_TEST_SUITE_P(Rows, ManualSearchTest,
                         testing::ValuesIn(test::readTable("manual_search.tsv")), test::testName);

TEST(ManualSearch, StartsWithNothingFound) {
    const ManualSearch search(u"locator");
    EXPECT_EQ(search.SearchPos(), 0U);
    EXPECT_EQ(search.NextStart(), 0U);
    EXPECT_FALSE(search.Found());
}

/// What a plain search would need long for; the benchmark NearlyMatchingFind says how long this
/// does.
TEST(ManualSearch, FindsNothingWhereTheTextNearlyMatchesEverywhere) {
    ManualSearch search(Text(100'000, u'a') + u'b' + Text(100'000, u'a'));
    const Text arm(5000, u'a');
    EXPECT_EQ(search.DoTheSearch(arm + u"bb" + arm).outcome, ManualFind::Outcome::nothingFound);
    EXPECT_EQ(search.DoTheSearch(arm + u"b" + arm).position, 95'001U);
}

TEST(ManualSearch, LooksAheadToTheLastCharacter) {
    ManualSearch search(u"aa");
    EXPECT_EQ(search.DoTheSearch(u"A").position, 1U);
    EXPECT_EQ(search.SearchPos(), 2U);
    EXPECT_EQ(search.DoTheSearch(u"A").position, 2U);
    EXPECT_EQ(search.SearchPos(), 0U);
}

} // namespace

} // namespace orbisgrid
