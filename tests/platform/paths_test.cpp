#include "platform/paths.h"
#include "tests/platform/temporary_folder.h"
#include "tests/support/child.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

namespace orbisgrid {

namespace {

using test::inChild;
using test::TemporaryFolder;

TEST(Paths, ARelativeOneCountsFromTheCurrentFolder) {
    EXPECT_EQ(absolutePath("/a/../b"), "/a/../b");
    EXPECT_EQ(inChild([] {
                  return ::chdir("/usr") == 0 && absolutePath("a") == "/usr/a" &&
                                 ::chdir("/") == 0 && absolutePath("a/b") == "/a/b"
                             ? 0
                             : 1;
              }),
              0);
}

TEST(Paths, WithoutACurrentFolderARelativeOneStays) {
    const TemporaryFolder folder;
    EXPECT_EQ(inChild([&] {
                  const std::string gone = folder.path("gone");
                  return ::mkdir(gone.c_str(), 0700) == 0 && ::chdir(gone.c_str()) == 0 &&
                                 ::rmdir(gone.c_str()) == 0 && absolutePath("a") == "a"
                             ? 0
                             : 1;
              }),
              0);
}

TEST(Paths, AreCleanedOfWhatLeadsNowhere) {
    EXPECT_EQ(cleanPath("/a//b/./c/"), "/a/b/c");
    EXPECT_EQ(cleanPath("/a/b/../c"), "/a/c");
    EXPECT_EQ(cleanPath("/../../a"), "/a");
    EXPECT_EQ(cleanPath("/a/.."), "/");
    EXPECT_EQ(cleanPath("/"), "/");
    EXPECT_EQ(cleanPath("/..a/b..."), "/..a/b...");
}

TEST(Paths, FolderOfAPath) {
    EXPECT_EQ(parentFolder("/a/b"), "/a");
    EXPECT_EQ(parentFolder("/a"), "/");
    EXPECT_EQ(parentFolder("a/b"), "a");
    EXPECT_EQ(parentFolder("a"), "");
}

TEST(Paths, TargetOfALinkAsItStands) {
    const TemporaryFolder folder;
    ASSERT_EQ(::symlink("somewhere/Ж", folder.path("link").c_str()), 0);
    EXPECT_EQ(linkTarget(folder.path("link")), "somewhere/Ж");
    EXPECT_EQ(linkTarget(folder.make("file", "x")), "");
}

TEST(Paths, AFolderIsMadeWithThoseAboveIt) {
    const TemporaryFolder folder;
    EXPECT_TRUE(provideFolder(folder.path("a/b/c")));
    EXPECT_EQ(std::filesystem::status(folder.path("a/b/c")).permissions(),
              std::filesystem::perms::owner_all);
    EXPECT_TRUE(provideFolder(folder.path("a/b/c"))) << "it is there";
    folder.make("file", "x");
    EXPECT_FALSE(provideFolder(folder.path("file/a")));
    EXPECT_FALSE(provideFolder(folder.path("file")));
}

} // namespace

} // namespace orbisgrid
