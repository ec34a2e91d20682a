#include "batch/progress.h"

#include <gtest/gtest.h>

namespace orbisgrid {

namespace {

using std::chrono::milliseconds;

/// A terminal and a clock of the test's.
class ProgressTest : public testing::Test {
protected:
    Progress progress() {
        return Progress([this](const std::string& bytes) { m_shown += bytes; },
                        [this] { return std::chrono::steady_clock::time_point(m_now); });
    }

    /// What is put on the terminal when so much has been done at that time.
    std::string after(Progress& progress, std::int64_t time, WorkDone done) {
        m_shown.clear();
        m_now = milliseconds(time);
        progress.update(done);
        return m_shown;
    }

    std::string m_shown;
    milliseconds m_now{0};
};

TEST_F(ProgressTest, AppearsAfterASecond) {
    Progress line = progress();
    line.setTotal(1000);
    EXPECT_EQ(after(line, 999, {500, 5}), "");
    EXPECT_EQ(after(line, 1000, {250, 1234}),
              "\r\x1b[K25 %, 1,234 lines, 1,234 a second, 3 s left");
}

TEST_F(ProgressTest, ChangesFiveTimesASecond) {
    Progress line = progress();
    EXPECT_NE(after(line, 2000, {1, 10}), "");
    EXPECT_EQ(after(line, 2199, {1, 10}), "");
    EXPECT_EQ(after(line, 2200, {1, 11}), "\r\x1b[K11 lines, 5 a second");
}

TEST_F(ProgressTest, IsErasedOnce) {
    Progress line = progress();
    line.erase();
    EXPECT_EQ(m_shown, "") << "there was none";
    after(line, 2000, {1, 10});
    m_shown.clear();
    line.erase();
    line.erase();
    EXPECT_EQ(m_shown, "\r\x1b[K");
}

TEST_F(ProgressTest, KnowsNoShareOfAPipe) {
    Progress line = progress();
    EXPECT_EQ(after(line, 2000, {500, 10}), "\r\x1b[K10 lines, 5 a second");
    line.setTotal(0);
    EXPECT_EQ(after(line, 3000, {500, 10}), "\r\x1b[K10 lines, 3 a second") << "an empty file";
    line.setTotal(1000);
    EXPECT_EQ(after(line, 4000, {0, 10}), "\r\x1b[K10 lines, 3 a second") << "nothing read yet";
}

TEST_F(ProgressTest, RoundsTheRateToTheNearest) {
    Progress line = progress();
    EXPECT_EQ(after(line, 2001, {1, 1}), "\r\x1b[K1 line, 0 a second");
    EXPECT_EQ(after(line, 4000, {1, 2}), "\r\x1b[K2 lines, 1 a second");
}

TEST_F(ProgressTest, KnowsTheShareOfASingleByte) {
    Progress line = progress();
    line.setTotal(1);
    EXPECT_EQ(after(line, 2000, {1, 1}), "\r\x1b[K100 %, 1 line, 1 a second, 0 s left");
}

TEST_F(ProgressTest, IsNeverBeyondTheEnd) {
    Progress line = progress();
    line.setTotal(100);
    EXPECT_EQ(after(line, 2000, {300, 10}), "\r\x1b[K100 %, 10 lines, 5 a second, 0 s left")
        << "of a file that grows";
}

TEST_F(ProgressTest, CountsALongTimeInMinutes) {
    Progress line = progress();
    line.setTotal(100);
    EXPECT_EQ(after(line, 1000, {1, 10}), "\r\x1b[K1 %, 10 lines, 10 a second, 99 s left");
    EXPECT_EQ(after(line, 2000, {1, 10}), "\r\x1b[K1 %, 10 lines, 5 a second, 3 min left");
    const auto timeLeft = [&](int seconds, std::uint64_t bytes) {
        Progress another = progress();
        another.setTotal(100);
        const std::string shown = after(another, m_now.count() + 1000 * seconds, {bytes, 10});
        return shown.substr(shown.rfind(", ") + 2);
    };
    EXPECT_EQ(timeLeft(99, 50), "99 s left");
    EXPECT_EQ(timeLeft(100, 50), "2 min left");
    EXPECT_EQ(timeLeft(149, 50), "2 min left");
    EXPECT_EQ(timeLeft(150, 50), "3 min left");
    EXPECT_EQ(timeLeft(3600, 50), "60 min left");
    EXPECT_EQ(timeLeft(3600, 200), "0 s left") << "of a file that grows";
}

TEST_F(ProgressTest, WithoutATerminalThereIsNone) {
    Progress line({}, [this] { return std::chrono::steady_clock::time_point(m_now); });
    EXPECT_EQ(after(line, 5000, {1, 1}), "");
    line.erase();
}

TEST(Grouped, HasACommaBetweenThreeDigits) {
    EXPECT_EQ(grouped(0), "0");
    EXPECT_EQ(grouped(999), "999");
    EXPECT_EQ(grouped(1000), "1,000");
    EXPECT_EQ(grouped(123456), "123,456");
    EXPECT_EQ(grouped(1234567), "1,234,567");
}

} // namespace

} // namespace orbisgrid
