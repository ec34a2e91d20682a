#include "tests/support/child.h"

#include "tests/support/new_folder.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <fstream>

namespace orbisgrid::test {

namespace {

using Clock = std::chrono::steady_clock;

/// What `shell` says when a command takes more than a second.
std::string complaintOf(const std::string& command) {
    try {
        shell(command, 1);
    } catch (const std::runtime_error& complaint) {
        return complaint.what();
    }
    return "none";
}

/// Runs as long as it takes to be seen, and no longer should nobody end it.
const std::string forLong = "sleep 60";

TEST(Shell, SaysWhatTheCommandLeft) {
    const ShellResult result = shell("echo one; echo two >&2; exit 3", 60);
    EXPECT_EQ(result.output, "one\n");
    EXPECT_EQ(result.status, 3);
    EXPECT_EQ(shell("kill -KILL $$").status, 1000 + SIGKILL);
}

TEST(Shell, GivesACommandNothingToRead) {
    EXPECT_EQ(shell("cat; echo end", 60).output, "end\n");
}

TEST(Shell, TakesMoreThanAPipeHolds) {
    EXPECT_EQ(shell("head -c 300000 /dev/zero").output.size(), 300000U);
}

TEST(Shell, ACommandThatDoesNotEndIsKilledAndNamed) {
    const auto start = Clock::now();
    EXPECT_EQ(complaintOf(forLong), "waited for 1 seconds for the end of: " + forLong);
    EXPECT_LT(Clock::now() - start, std::chrono::seconds(30));
}

TEST(Shell, ACommandThatClosesItsOutputAndDoesNotEndIsKilledAndNamed) {
    const std::string command = "exec >&-; exec " + forLong;
    EXPECT_EQ(complaintOf(command), "waited for 1 seconds for the end of: " + command);
}

/// As a program that goes into the background and keeps what it was given.
TEST(Shell, WhoeverHoldsTheOutputIsKilledAndTheCommandNamed) {
    const std::filesystem::path folder = newFolder("child");
    const std::string note = (folder / "process").string();
    const std::string command = "sh -c 'echo $$ >" + note + "; exec " + forLong + "' & exit 0";
    EXPECT_EQ(complaintOf(command),
              "waited for 1 seconds for whoever holds the output of: " + command);
    pid_t holder = -1;
    std::ifstream(note) >> holder;
    EXPECT_GT(holder, 0);
    const std::string state = "/proc/" + std::to_string(holder) + "/status";
    EXPECT_TRUE(waitUntil([&] { return shell("grep -q 'State:.[^Z]' " + state).status != 0; }, 30));
    std::filesystem::remove_all(folder);
}

TEST(Child, OneThatHangsIsKilled) {
    pid_t child = startChild([] { becomeCommand(forLong); });
    EXPECT_THROW(nextStatusOf(child, 1), std::runtime_error);
    EXPECT_NE(::kill(child, 0), 0);
}

TEST(Child, OneThatASignalDoesNotEndIsKilled) {
    const std::filesystem::path folder = newFolder("child");
    const std::string note = (folder / "deaf").string();
    pid_t child = startChild([&] {
        ::signal(SIGTERM, SIG_IGN); // what it becomes ignores it as well
        std::ofstream{note};
        becomeCommand("sleep 60");
    });
    const pid_t process = child;
    EXPECT_TRUE(waitUntil([&] { return std::filesystem::exists(note); }, 30));
    const auto start = Clock::now();
    endChild(child, SIGTERM, 1);
    EXPECT_LT(Clock::now() - start, std::chrono::seconds(30));
    EXPECT_EQ(child, -1);
    EXPECT_NE(::kill(process, 0), 0);
    std::filesystem::remove_all(folder);
}

TEST(WaitUntil, CountsWhatTheConditionTakes) {
    const auto start = Clock::now();
    EXPECT_FALSE(waitUntil([] { return ::usleep(100000) != 0; }, 1));
    EXPECT_LT(Clock::now() - start, std::chrono::seconds(4));
}

} // namespace

} // namespace orbisgrid::test
