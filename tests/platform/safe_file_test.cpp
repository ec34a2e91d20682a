#include "platform/safe_file.h"
#include "tests/platform/temporary_folder.h"
#include "tests/support/child.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <ctime>

namespace orbisgrid {

namespace {

using test::inChild;
using test::inChildWithoutRights;
using test::limitFileSize;
using test::TemporaryFolder;

const std::string oldContent = "old content\r\n";
const std::string newContent(5000, 'n');

void makeOlder(const std::string& path, int seconds) {
    const std::time_t then = std::time(nullptr) - seconds;
    const std::array<timespec, 2> times{timespec{then, 0}, timespec{then, 0}};
    ::utimensat(AT_FDCWD, path.c_str(), times.data(), 0);
}

// Reading ---------------------------------------------------------------------------------------

TEST(ReadFile, EveryByte) {
    const TemporaryFolder folder;
    std::string bytes;
    for (int i = 0; i < 100000; ++i)
        bytes += static_cast<char>(i);
    folder.make("file", bytes);
    EXPECT_EQ(readFile(folder.path("file")), bytes);
}

TEST(ReadFile, EmptyFileIsNoFailure) {
    const TemporaryFolder folder;
    folder.make("file", "");
    EXPECT_EQ(readFile(folder.path("file")), "");
}

TEST(ReadFile, WhatIsNoFileIsNothing) {
    const TemporaryFolder folder;
    ::mkfifo(folder.path("pipe").c_str(), 0666);
    EXPECT_FALSE(readFile(folder.path("missing")));
    EXPECT_FALSE(readFile(folder.path("")));
    EXPECT_FALSE(readFile(folder.path("pipe"))) << "and it must not wait for a writer";
}

TEST(ReadFile, FileWithoutRightsIsNothing) {
    const TemporaryFolder folder;
    folder.make("file", "x", 0);
    EXPECT_EQ(inChildWithoutRights([&] { return readFile(folder.path("file")) ? 1 : 0; }), 0);
}

// Saving ----------------------------------------------------------------------------------------

TEST(SaveFile, MakesAFileWithTheUsualMode) {
    const TemporaryFolder folder;
    EXPECT_EQ(inChild([&] {
                  ::umask(027);
                  return saveFile(folder.path("file"), newContent) ? 0 : 1;
              }),
              0);
    EXPECT_EQ(folder.content("file"), newContent);
    EXPECT_EQ(folder.modeOf("file"), 0640U);
    EXPECT_EQ(folder.names(), std::set<std::string>{"file"});
}

TEST(SaveFile, ReplacesTheContentAndKeepsTheMode) {
    const TemporaryFolder folder;
    for (const mode_t mode : {0600U, 0664U, 0777U, 0606U}) {
        folder.make("file", oldContent, mode);
        EXPECT_TRUE(saveFile(folder.path("file"), newContent));
        EXPECT_EQ(folder.content("file"), newContent);
        EXPECT_EQ(folder.modeOf("file"), mode);
    }
    EXPECT_EQ(folder.names(), std::set<std::string>{"file"});
}

TEST(SaveFile, EmptyContentAndEveryByte) {
    const TemporaryFolder folder;
    folder.make("file", oldContent);
    EXPECT_TRUE(saveFile(folder.path("file"), ""));
    EXPECT_EQ(folder.content("file"), "");
    const std::string bytes("\0\r\n\xFF", 4);
    EXPECT_TRUE(saveFile(folder.path("file"), bytes));
    EXPECT_EQ(folder.content("file"), bytes);
}

TEST(SaveFile, NameWithLettersAndBlanks) {
    const TemporaryFolder folder;
    EXPECT_TRUE(saveFile(folder.path("Ж a.ini"), newContent));
    EXPECT_EQ(folder.content("Ж a.ini"), newContent);
}

TEST(SaveFile, RelativePathCountsFromTheCurrentFolder) {
    const TemporaryFolder folder;
    EXPECT_EQ(inChild([&] {
                  const bool isThere = ::chdir(folder.path("").c_str()) == 0;
                  return isThere && saveFile("file", newContent) ? 0 : 1;
              }),
              0);
    EXPECT_EQ(folder.content("file"), newContent);
}

TEST(SaveFile, KeepsTheOwner) {
    if (::geteuid() != 0)
        GTEST_SKIP() << "only root can give a file to somebody else";
    const TemporaryFolder folder;
    const std::string path = folder.make("file", oldContent, 0604);
    ASSERT_EQ(::chown(path.c_str(), 1234, 4321), 0);
    EXPECT_TRUE(saveFile(folder.path("file"), newContent));

    struct stat status = {};

    ::stat(path.c_str(), &status);
    EXPECT_EQ(status.st_uid, 1234U);
    EXPECT_EQ(status.st_gid, 4321U);
    EXPECT_EQ(folder.modeOf("file"), 0604U);
}

// Links -----------------------------------------------------------------------------------------

TEST(SaveFile, FollowsLinks) {
    const TemporaryFolder folder;
    ASSERT_EQ(::mkdir(folder.path("sub").c_str(), 0777), 0);
    folder.make("sub/file", oldContent);
    ASSERT_EQ(::symlink("sub/second", folder.path("first").c_str()), 0);
    ASSERT_EQ(::symlink(folder.path("sub/file").c_str(), folder.path("sub/second").c_str()), 0);
    EXPECT_TRUE(saveFile(folder.path("first"), newContent));
    EXPECT_EQ(folder.content("sub/file"), newContent);
    EXPECT_TRUE(std::filesystem::is_symlink(folder.path("first")));
    EXPECT_TRUE(std::filesystem::is_symlink(folder.path("sub/second")));
}

TEST(SaveFile, MakesTheFileThatALinkNames) {
    const TemporaryFolder folder;
    ASSERT_EQ(::symlink("file", folder.path("link").c_str()), 0);
    EXPECT_TRUE(saveFile(folder.path("link"), newContent));
    EXPECT_TRUE(std::filesystem::is_symlink(folder.path("link")));
    EXPECT_EQ(folder.content("file"), newContent);
}

TEST(SaveFile, LinksInACircleAreAFailure) {
    const TemporaryFolder folder;
    ASSERT_EQ(::symlink("b", folder.path("a").c_str()), 0);
    ASSERT_EQ(::symlink("a", folder.path("b").c_str()), 0);
    EXPECT_FALSE(saveFile(folder.path("a"), newContent));
    EXPECT_FALSE(isSavable(folder.path("a")));
}

// Refusals --------------------------------------------------------------------------------------

TEST(SaveFile, RefusesWhatIsNoFile) {
    const TemporaryFolder folder;
    ::mkfifo(folder.path("pipe").c_str(), 0666);
    ::mkdir(folder.path("sub").c_str(), 0777);
    for (const char* name : {"pipe", "sub", "missing/file"}) {
        EXPECT_FALSE(saveFile(folder.path(name), newContent)) << name;
        EXPECT_FALSE(isSavable(folder.path(name))) << name;
    }
    EXPECT_TRUE(std::filesystem::is_fifo(folder.path("pipe")));
    EXPECT_EQ(folder.names(), (std::set<std::string>{"pipe", "sub"}));
}

TEST(SaveFile, RefusesAWriteProtectedFile) {
    const TemporaryFolder folder;
    folder.make("file", oldContent, 0444);
    EXPECT_EQ(inChildWithoutRights([&] {
                  const std::string path = folder.path("file");
                  return saveFile(path, newContent) || isSavable(path) ? 1 : 0;
              }),
              0);
    EXPECT_EQ(folder.content("file"), oldContent);
}

TEST(SaveFile, FailsForANewFileInAReadOnlyFolder) {
    const TemporaryFolder folder;
    folder.setMode(0555);
    EXPECT_EQ(inChildWithoutRights([&] {
                  const std::string path = folder.path("file");
                  return saveFile(path, newContent) || isSavable(path) ? 1 : 0;
              }),
              0);
    EXPECT_TRUE(folder.names().empty());
}

TEST(IsSavable, FileOrFolderThatMayBeWritten) {
    const TemporaryFolder folder;
    folder.make("file", oldContent);
    EXPECT_TRUE(isSavable(folder.path("file")));
    EXPECT_TRUE(isSavable(folder.path("new")));
}

// Writing directly ------------------------------------------------------------------------------

TEST(SaveFileDirectly, WhereTheFolderIsReadOnly) {
    const TemporaryFolder folder;
    for (const std::string& content : {newContent, std::string("short"), std::string()}) {
        folder.setMode(0777);
        const std::string path = folder.make("file", oldContent, 0666);
        folder.setMode(0555);
        EXPECT_EQ(
            inChildWithoutRights([&] { return saveFile(folder.path("file"), content) ? 0 : 1; }),
            0);
        EXPECT_EQ(folder.content("file"), content);
        EXPECT_EQ(folder.names(), std::set<std::string>{"file"});
    }
}

TEST(SaveFileDirectly, WhereTheNameLeavesNoRoomForASecondOne) {
    const TemporaryFolder folder;
    const std::string longest(255, 'n');
    folder.make(longest, oldContent);
    EXPECT_TRUE(saveFile(folder.path(longest), newContent));
    EXPECT_EQ(folder.content(longest), newContent);
}

// Full disk -------------------------------------------------------------------------------------

TEST(SaveFileFullDisk, KeepsTheOldContent) {
    const TemporaryFolder folder;
    for (const std::size_t limit : {0U, 1U, 100U, 4096U, 4999U}) {
        SCOPED_TRACE(limit);
        folder.make("file", oldContent);
        EXPECT_EQ(inChild([&] {
                      limitFileSize(limit);
                      return saveFile(folder.path("file"), newContent) ? 1 : 0;
                  }),
                  0);
        EXPECT_EQ(folder.content("file"), oldContent);
        EXPECT_EQ(folder.names(), std::set<std::string>{"file"});
    }
}

TEST(SaveFileFullDisk, LeavesNoNewFile) {
    const TemporaryFolder folder;
    EXPECT_EQ(inChild([&] {
                  limitFileSize(100);
                  return saveFile(folder.path("file"), newContent) ? 1 : 0;
              }),
              0);
    EXPECT_TRUE(folder.names().empty());
}

TEST(SaveFileFullDisk, KeepsTheOldContentWhenWritingDirectly) {
    const TemporaryFolder folder;
    for (const std::size_t limit : {20U, 100U, 4096U, 4999U}) {
        SCOPED_TRACE(limit);
        folder.setMode(0777);
        folder.make("file", oldContent);
        folder.setMode(0555);
        EXPECT_EQ(inChildWithoutRights([&] {
                      limitFileSize(limit);
                      return saveFile(folder.path("file"), newContent) ? 1 : 0;
                  }),
                  0);
        EXPECT_EQ(folder.content("file"), oldContent);
    }
}

// Leftovers -------------------------------------------------------------------------------------

TEST(SaveFileLeftovers, OldOnesOfThisFileAreRemoved) {
    const TemporaryFolder folder;
    const std::set<std::string> kept{"file",
                                     "file.backup",
                                     ".file",
                                     ".file.saving-",
                                     ".file.saving-mine",
                                     ".other.saving-123-0",
                                     "file.saving-123-0",
                                     ".file.saving-124-0"};
    for (const std::string& name : kept)
        makeOlder(folder.make(name, "x"), 100000);
    makeOlder(folder.path(".file.saving-124-0"), leftoverAgeSeconds - 60);
    makeOlder(folder.make(".file.saving-123-0", "x"), leftoverAgeSeconds + 60);
    makeOlder(folder.make(".file.saving-4194304-99", "x"), 100000);
    EXPECT_TRUE(saveFile(folder.path("file"), newContent));
    EXPECT_EQ(folder.names(), kept);
}

TEST(SaveFileLeftovers, OneUnderTheNextNameIsNoObstacle) {
    const TemporaryFolder folder;
    EXPECT_EQ(inChild([&] {
                  const std::string name = ".file.saving-" + std::to_string(::getpid()) + "-0";
                  folder.make(name, "at work");
                  const bool isSaved = saveFile(folder.path("file"), newContent);
                  return isSaved && folder.content(name) == "at work" ? 0 : 1;
              }),
              0);
    EXPECT_EQ(folder.content("file"), newContent);
}

} // namespace

} // namespace orbisgrid
