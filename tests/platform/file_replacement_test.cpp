#include "platform/safe_file.h"
#include "tests/platform/temporary_folder.h"
#include "tests/support/child.h"
#include "tests/support/faults.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <iostream>

namespace orbisgrid {

namespace {

using test::inChild;
using test::inChildWithoutRights;
using test::TemporaryFolder;

const std::string oldContent = "old content\r\n";
const std::string piece(3000, 'n');

/// Replaces a file by three pieces. Result: whether that was done.
bool replaceByThree(const std::string& path) {
    FileReplacement file(path);
    return file.write(piece) && file.write("") && file.write(piece) && file.write("end") &&
           file.finish();
}

const std::string newContent = piece + piece + "end";

TEST(FileReplacement, IsAllOfItsPieces) {
    const TemporaryFolder folder;
    folder.make("file", oldContent, 0604);
    EXPECT_TRUE(replaceByThree(folder.path("file")));
    EXPECT_TRUE(replaceByThree(folder.path("new")));
    EXPECT_EQ(folder.content("file"), newContent);
    EXPECT_EQ(folder.content("new"), newContent);
    EXPECT_EQ(folder.names(), (std::set<std::string>{"file", "new"}));
    EXPECT_EQ(folder.modeOf("file"), 0604U);
}

TEST(FileReplacement, MayBeOfNothing) {
    const TemporaryFolder folder;
    folder.make("file", oldContent);
    FileReplacement file(folder.path("file"));
    EXPECT_EQ(file.error(), 0);
    EXPECT_TRUE(file.finish());
    EXPECT_EQ(folder.content("file"), "");
}

TEST(FileReplacement, IsNotThereBeforeItIsFinished) {
    const TemporaryFolder folder;
    folder.make("file", oldContent);
    {
        FileReplacement file(folder.path("file"));
        EXPECT_TRUE(file.write(piece));
        EXPECT_EQ(folder.content("file"), oldContent);
    }
    EXPECT_EQ(folder.content("file"), oldContent);
    EXPECT_EQ(folder.names(), std::set<std::string>{"file"});
}

TEST(FileReplacement, FollowsLinks) {
    const TemporaryFolder folder;
    folder.make("file", oldContent);
    ASSERT_EQ(::symlink("file", folder.path("link").c_str()), 0);
    EXPECT_TRUE(replaceByThree(folder.path("link")));
    EXPECT_EQ(folder.content("file"), newContent);
    EXPECT_TRUE(std::filesystem::is_symlink(folder.path("link")));
}

/// Why a file cannot be replaced; nothing else may be possible then.
int errorOf(const std::string& path) {
    FileReplacement file(path);
    if (file.error() != 0 && (file.write(piece) || file.finish()))
        return -1;
    return file.error();
}

TEST(FileReplacement, SaysWhyItCannotBe) {
    const TemporaryFolder folder;
    ::mkfifo(folder.path("pipe").c_str(), 0666);
    ::mkdir(folder.path("sub").c_str(), 0777);
    ASSERT_EQ(::symlink("b", folder.path("a").c_str()), 0);
    ASSERT_EQ(::symlink("a", folder.path("b").c_str()), 0);
    EXPECT_EQ(errorOf(folder.path("pipe")), EINVAL);
    EXPECT_EQ(errorOf(folder.path("sub")), EISDIR);
    EXPECT_EQ(errorOf(folder.path("missing/file")), ENOENT);
    EXPECT_EQ(errorOf(folder.path("a")), ELOOP);
    folder.make("file", oldContent, 0444);
    EXPECT_EQ(inChildWithoutRights([&] { return errorOf(folder.path("file")); }), EACCES);
    EXPECT_EQ(folder.content("file"), oldContent);
}

TEST(FileReplacement, NeverWritesDirectly) {
    const TemporaryFolder folder;
    folder.make("file", oldContent, 0666);
    folder.setMode(0555);
    EXPECT_EQ(inChildWithoutRights([&] { return errorOf(folder.path("file")); }), EACCES);
    EXPECT_EQ(folder.content("file"), oldContent);
}

TEST(FileReplacement, AFullDiskKeepsTheOldContent) {
    const TemporaryFolder folder;
    for (const std::size_t limit : {0U, 100U, 3000U, 6002U}) {
        folder.make("file", oldContent);
        EXPECT_EQ(inChild([&] {
                      test::limitFileSize(limit);
                      FileReplacement file(folder.path("file"));
                      const bool isWritten =
                          file.write(piece) && file.write(piece) && file.write("end");
                      return !isWritten && !file.finish() && file.error() == EFBIG ? 0 : 1;
                  }),
                  0);
        EXPECT_EQ(folder.content("file"), oldContent);
        EXPECT_EQ(folder.names(), std::set<std::string>{"file"});
    }
}

TEST(FileReplacement, AnInterruptedProcessLeavesNothing) {
    const TemporaryFolder folder;
    folder.make("file", oldContent);
    const int nameless = ::open(folder.path("").c_str(), O_WRONLY | O_TMPFILE | O_CLOEXEC, 0600);
    if (nameless < 0)
        GTEST_SKIP() << "SKIPPED: this file system knows no files without a name";
    ::close(nameless);
    EXPECT_EQ(inChild([&]() -> int {
                  FileReplacement file(folder.path("file"));
                  ::_exit(file.write(piece) ? 0 : 1); // as a signal ends it
              }),
              0);
    EXPECT_EQ(folder.content("file"), oldContent);
    EXPECT_EQ(folder.names(), std::set<std::string>{"file"});
}

TEST(FileReplacement, OneUnderTheNextNameIsNoObstacle) {
    const TemporaryFolder folder;
    EXPECT_EQ(inChild([&] {
                  const std::string name = ".file.saving-" + std::to_string(::getpid()) + "-0";
                  folder.make(name, "at work");
                  const bool isReplaced = replaceByThree(folder.path("file"));
                  return isReplaced && folder.content(name) == "at work" ? 0 : 1;
              }),
              0);
    EXPECT_EQ(folder.content("file"), newContent);
}

TEST(FileReplacement, KilledAtEachSystemCallLeavesOldOrNew) {
    const TemporaryFolder folder;
    std::set<std::string> seen;
    const int kills = test::killAtEachSystemCall(
        [&] { folder.make("file", oldContent); }, [&] { replaceByThree(folder.path("file")); },
        [&](int call) {
            const std::string left = folder.content("file");
            EXPECT_TRUE(left == oldContent || left == newContent) << "at stop " << call;
            seen.insert(left);
        });
    if (kills == 0)
        GTEST_SKIP() << "SKIPPED: this system does not let processes be traced";
    EXPECT_GT(kills, 10);
    EXPECT_EQ(seen.size(), 2U) << "kills on both sides of the change";
}

TEST(FileReplacement, EachFaultLeavesOldOrNewAndTheResultIsTrue) {
    const TemporaryFolder folder;
    int faults = 0;
    int failures = 0;
    for (const test::Fault fault : test::everyFault) {
        faults += test::failAtEachFileCall(
            fault, [&] { folder.make("file", oldContent, 0640); },
            [&] { return replaceByThree(folder.path("file")) ? 0 : 1; },
            [&](const test::FaultyRun& run) {
                EXPECT_EQ(folder.content("file"), run.result == 0 ? newContent : oldContent)
                    << nameOf(fault) << " at call " << run.call << ", " << run.name;
                failures += run.result;
            });
    }
    if (faults == 0)
        GTEST_SKIP() << "SKIPPED: this system does not let processes be traced";
    EXPECT_GT(failures, 0) << "no fault made it fail";
    EXPECT_LT(failures, faults) << "no fault was harmless";
    std::cout << faults << " faults, " << failures << " of them refused\n";
}

} // namespace

} // namespace orbisgrid
