#include "platform/safe_file.h"
#include "tests/platform/temporary_folder.h"
#include "tests/support/child.h"

#include <gtest/gtest.h>

#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <iostream>
#include <random>
#include <sched.h>

namespace orbisgrid {

namespace {

using test::TemporaryFolder;

const std::string contentA(20000, 'a');
const std::string contentB(30000, 'b');

/// "A", "B", "none", or what is neither.
std::string nameOf(const std::string& content) {
    if (content == contentA)
        return "A";
    if (content == contentB)
        return "B";
    return content == "(no file)" ? "none" : "torn: " + std::to_string(content.size()) + " bytes";
}

bool isWhole(const std::string& content) {
    return content == contentA || content == contentB;
}

TEST(SaveFileKilled, AtEachSystemCallLeavesOldOrNew) {
    const TemporaryFolder folder;
    std::set<std::string> seen;
    const int kills = test::killAtEachSystemCall(
        [&] { folder.make("file", contentA); }, [&] { saveFile(folder.path("file"), contentB); },
        [&](int call) {
            const std::string left = nameOf(folder.content("file"));
            EXPECT_TRUE(left == "A" || left == "B") << left << " at stop " << call;
            seen.insert(left);
        });
    if (kills == 0)
        GTEST_SKIP() << "SKIPPED: this system does not let processes be traced";
    EXPECT_GT(kills, 10);
    EXPECT_EQ(seen, (std::set<std::string>{"A", "B"})) << "kills on both sides of the change";
    std::cout << kills << " kills\n";
}

TEST(SaveFileKilled, AtEachSystemCallOfAFirstSaveLeavesNoneOrNew) {
    const TemporaryFolder folder;
    const int kills = test::killAtEachSystemCall([&] { ::unlink(folder.path("file").c_str()); },
                                                 [&] { saveFile(folder.path("file"), contentB); },
                                                 [&](int call) {
                                                     const std::string left =
                                                         nameOf(folder.content("file"));
                                                     EXPECT_TRUE(left == "none" || left == "B")
                                                         << left << " at stop " << call;
                                                 });
    if (kills == 0)
        GTEST_SKIP() << "SKIPPED: this system does not let processes be traced";
    EXPECT_GT(kills, 10);
}

/// Where only direct writing is possible, growing is safe: the room is reserved without a visible
/// change, and the content then goes into the file with one call.
TEST(SaveFileKilled, AtEachSystemCallOfDirectWritingLeavesOldOrNewWhenItGrows) {
    const TemporaryFolder folder;
    const std::string longest(255, 'n'); // no second name is possible
    const int kills = test::killAtEachSystemCall(
        [&] { folder.make(longest, contentA); }, [&] { saveFile(folder.path(longest), contentB); },
        [&](int call) {
            const std::string left = nameOf(folder.content(longest));
            EXPECT_TRUE(left == "A" || left == "B") << left << " at stop " << call;
        });
    if (kills == 0)
        GTEST_SKIP() << "SKIPPED: this system does not let processes be traced";
    EXPECT_GT(kills, 10);
}

[[noreturn]] void saveForEver(const std::string& path) {
    for (;;) {
        saveFile(path, contentA);
        saveFile(path, contentB);
    }
}

TEST(SaveFileKilled, AtAnyMomentLeavesOldOrNew) {
    const TemporaryFolder folder;
    folder.make("file", contentA);
    std::mt19937 random(20151); // any fixed seed: a failure can be had again
    std::uniform_int_distribution<useconds_t> moment(0, 6000);
    constexpr int kills = 200;
    for (int i = 0; i < kills; ++i) {
        const pid_t child = ::fork();
        if (child == 0)
            saveForEver(folder.path("file"));
        ::usleep(moment(random));
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        const std::string left = nameOf(folder.content("file"));
        ASSERT_TRUE(left == "A" || left == "B") << left << " after kill " << i;
    }
}

TEST(SaveFileTwice, AtOnceNeverGivesAMixture) {
    const TemporaryFolder folder;
    folder.make("file", contentA);
    std::array<pid_t, 2> writers{};
    for (pid_t& writer : writers) {
        writer = ::fork();
        if (writer == 0)
            saveForEver(folder.path("file"));
    }
    for (int i = 0; i < 2000; ++i) {
        const auto content = readFile(folder.path("file"));
        EXPECT_TRUE(content && isWhole(*content)) << "read " << i;
    }
    for (const pid_t writer : writers) {
        ::kill(writer, SIGKILL);
        ::waitpid(writer, nullptr, 0);
    }
}

// A disk that is full in earnest: a file system in memory, mounted where only the child sees it.

constexpr int cannotMount = 77;

/// Lets an ordinary user be root in a world of its own, as far as the system has such worlds.
bool becomesRootOfItsOwn() {
    const std::string user = "0 " + std::to_string(::geteuid()) + " 1";
    const std::string group = "0 " + std::to_string(::getegid()) + " 1";
    if (::geteuid() == 0)
        return ::unshare(CLONE_NEWNS) == 0;
    if (::unshare(CLONE_NEWNS | CLONE_NEWUSER) != 0)
        return false;
    std::ofstream("/proc/self/uid_map") << user;
    std::ofstream("/proc/self/setgroups") << "deny";
    std::ofstream("/proc/self/gid_map") << group;
    return ::geteuid() == 0;
}

/// Runs `work` with a file system of 64 KiB mounted at `path`. Its result, or cannotMount.
int withSmallDisk(const std::string& path, const std::function<int()>& work) {
    return test::inChild([&] {
        if (!becomesRootOfItsOwn() ||
            ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
            ::mount("none", path.c_str(), "tmpfs", 0, "size=64k") != 0)
            return cannotMount;
        return work();
    });
}

TEST(SaveFileSmallDisk, KeepsTheOldContent) {
    const TemporaryFolder folder;
    const int result = withSmallDisk(folder.path(""), [&] {
        folder.make("file", contentA);
        for (const std::size_t size : {50000U, 60000U, 200000U}) {
            const bool isSaved = saveFile(folder.path("file"), std::string(size, 'c'));
            if (isSaved || folder.content("file") != contentA || folder.names().size() != 1)
                return 1;
        }
        return saveFile(folder.path("file"), contentB) && folder.content("file") == contentB ? 0
                                                                                             : 2;
    });
    if (result == cannotMount)
        GTEST_SKIP() << "SKIPPED: this user may not mount a file system";
    EXPECT_EQ(result, 0);
}

TEST(SaveFileSmallDisk, KeepsTheOldContentWhenWritingDirectly) {
    const TemporaryFolder folder;
    const int result = withSmallDisk(folder.path(""), [&] {
        // A file that is a mount point takes no other file in its place.
        const std::string path = folder.make("file", contentA);
        if (::mount(path.c_str(), path.c_str(), nullptr, MS_BIND, nullptr) != 0)
            return cannotMount;
        if (saveFile(folder.path("file"), std::string(200000, 'c')) ||
            folder.content("file") != contentA)
            return 1;
        if (!saveFile(folder.path("file"), contentB) || folder.content("file") != contentB)
            return 2;
        return folder.names().size() == 1 ? 0 : 3;
    });
    if (result == cannotMount)
        GTEST_SKIP() << "SKIPPED: this user may not mount a file system";
    EXPECT_EQ(result, 0);
}

} // namespace

} // namespace orbisgrid
