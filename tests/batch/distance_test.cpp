#include "batch/box_text.h"
#include "batch/distance.h"
#include "core/number_text.h"
#include "panels/home_target.h"
#include "tests/support/recorded_messages.h"
#include "tests/support/table.h"

#include <numbers>
#include <random>

namespace orbisgrid {

namespace {

/// Calculate's labels without their units and letters, as the columns have them.
struct Shown {
    bool isRefused = false;
    std::vector<std::string> values;
};

std::string numberOf(const Text& label) {
    std::string text = toUtf8(label);
    text.erase(text.find_first_not_of("0123456789.-"));
    return text;
}

Shown calculated(const std::string& home, const std::string& target) {
    HomeTarget panel;
    FormTexts texts;
    test::RecordedMessages messages;
    panel.txtHome.set(fromUtf8(home));
    panel.txtTarget.set(fromUtf8(target));
    if (panel.calculate(texts, messages) != CalculateEnd::calculated)
        return {true, {}};
    return {false,
            {numberOf(panel.lblDistKm), numberOf(panel.lblDistMile), numberOf(panel.lblAzimuth),
             numberOf(panel.lblHomeLat), numberOf(panel.lblHomeLong), numberOf(panel.lblTargetLat),
             numberOf(panel.lblTargetLong)}};
}

Shown answered(DistanceTask& task, const std::string& home, const std::string& target) {
    Values values(task.columns().size());
    const Answer answer = task.answer({home, target, {}, false, {}}, values);
    if (!answer.refusal.empty())
        return {true, {}};
    return {false, values};
}

class CalculateRowTest : public testing::TestWithParam<test::Row> {};

TEST_P(CalculateRowTest, HasTheSameTexts) {
    const test::Row& row = GetParam();
    DistanceTask task({});
    const Shown shown = calculated(row["home"], row["target"]);
    const Shown own = answered(task, row["home"], row["target"]);
    EXPECT_EQ(own.isRefused, shown.isRefused);
    EXPECT_EQ(own.isRefused, !row["message"].empty());
    EXPECT_EQ(own.values, shown.values);
}

INSTANTIATE_TEST_SUITE_P(Rows, CalculateRowTest,
                         testing::ValuesIn(test::readTable("calculate.tsv")), test::testName);

/// Mostly a locator, of 2 to 10 characters in any case; now and then with a letter too far.
std::string randomLocator(std::mt19937& random) {
    constexpr std::string_view lasts = "SS99YY99XX";
    std::string locator;
    const std::size_t length = 2 + random() % 9;
    for (std::size_t i = 0; i < length; ++i) {
        const char first = lasts[i] == '9' ? '0' : random() % 2 == 0 ? 'A' : 'a';
        const unsigned cells = lasts[i] == '9' ? 10 : static_cast<unsigned>(lasts[i] - 'A' + 1);
        locator += static_cast<char>(first + static_cast<char>(random() % cells));
    }
    return locator;
}

TEST(DistanceTask, IsTheWindowDigitForDigit) {
    std::mt19937 random(20151);
    DistanceTask task({}); // one for all: what it keeps of a Home must be that Home's
    int passed = 0, wrong = 0;
    std::string home = "JO20AW";
    for (int i = 0; i < 100'000; ++i) {
        home = i % 3 == 0 ? home : randomLocator(random);
        const std::string target = i % 50 == 1 ? home : randomLocator(random);
        const Shown shown = calculated(home, target);
        const Shown own = answered(task, home, target);
        const bool isSame = own.isRefused == shown.isRefused && own.values == shown.values;
        passed += shown.isRefused ? 0 : 1;
        if (!isSame && wrong++ == 0)
            ADD_FAILURE() << home << " " << target;
    }
    EXPECT_EQ(wrong, 0);
    EXPECT_GT(passed, 40'000);
    EXPECT_LT(passed, 90'000) << "refusals are compared too";
}

TEST(DistanceTask, TheLongPathIsTheRestOfTheCircle) {
    std::mt19937 random(20152);
    DistanceTask task({{}, true, false});
    for (int i = 0; i < 10'000; ++i) {
        const std::string home = randomLocator(random), target = randomLocator(random);
        const Shown own = answered(task, home, target);
        if (own.isRefused)
            continue;
        const auto number = [&](std::size_t column) {
            return leadingNumber(fromUtf8(own.values[column]));
        };
        // Each of the two is cut from its next tenth on.
        EXPECT_NEAR(number(0) + number(7), 2 * std::numbers::pi * 6367 - 0.95, 0.96);
        if (!own.values[2].empty()) {
            EXPECT_EQ(std::abs(number(8) - number(2)), 180) << home << " " << target;
            EXPECT_LT(number(8), 360);
        } else {
            EXPECT_EQ(own.values[8], "");
        }
    }
}

TEST(DistanceTask, AnyPlaceOfTheWorldHasADistanceOnTheEllipsoid) {
    DistanceTask task({{}, false, true});
    Values values(task.columns().size());
    for (const double latitude : {-90.0, -45.0, 0.0, 90.0}) {
        for (const double longitude : {-180.0, 0.0, 180.0}) {
            for (const char* home : {"AA00AA", "JJ00AA", "RS99XX", "JS55LL"}) {
                const Answer answer =
                    task.answer({home, {}, Position{latitude, longitude}, false, {}}, values);
                EXPECT_EQ(answer.refusal, "");
                EXPECT_EQ(values[7].empty(), !answer.remark.empty());
            }
        }
    }
}

TEST(IsLocator, AsHomeMayBe) {
    for (const char* good : {"JO20", "jo20a", " JO20AW ", "JO20AW12", "JO20AW12BC"})
        EXPECT_TRUE(isLocator(good)) << good;
    for (const char* bad : {"", "JO2", "JO2?", "SA00", "JO20AY", "JO20\xFC"})
        EXPECT_FALSE(isLocator(bad)) << bad;
}

} // namespace

} // namespace orbisgrid
