#include "platform/programs.h"
#include "tests/platform/temporary_folder.h"
#include "tests/support/child.h"

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>

namespace orbisgrid {

namespace {

using test::inChild;
using test::TemporaryFolder;

/// A program that writes what it is and what it got to the file "seen", which has its name when it
/// is whole.
std::string makeTool(const TemporaryFolder& folder, const std::string& name) {
    return folder.make(name,
                       "#!/bin/sh\ncd '" + folder.path("") +
                           "'\n{ cut -d ' ' -f 4,6 /proc/$$/stat; printf '%s\\n' \"$@\"; } > part"
                           "\nmv part seen\n",
                       0755);
}

std::string seen(const TemporaryFolder& folder) {
    test::waitUntil([&] { return folder.names().contains("seen"); }, 10);
    return folder.content("seen");
}

// Where a program is ----------------------------------------------------------------------------

std::string folderOf(const TemporaryFolder& folder) {
    return std::filesystem::path(folder.path("x")).parent_path().string();
}

/// What is found in a process with this PATH, compared with `expected`.
void expectFound(const std::string& path, const std::string& name, const std::string& expected) {
    EXPECT_EQ(inChild([&] {
                  ::setenv("PATH", path.c_str(), 1);
                  return findProgram(name) == expected ? 0 : 1;
              }),
              0)
        << path << ": " << name;
}

TEST(FindProgram, TakesTheFirstFolderThatHasIt) {
    const TemporaryFolder first;
    const TemporaryFolder second;
    const std::string path = ":/nowhere:" + folderOf(first) + ":" + folderOf(second);
    const std::string tool = makeTool(second, "tool");
    expectFound(path, "tool", tool);
    expectFound(path, "tool", makeTool(first, "tool"));
    expectFound(path, "no-tool", "");
    expectFound("", "tool", "");
}

TEST(FindProgram, PassesOverWhatCannotBeRun) {
    const TemporaryFolder first;
    const TemporaryFolder second;
    first.make("tool", "#!/bin/sh\n", 0644);
    std::filesystem::create_directory(first.path("folder"));
    const std::string path = folderOf(first) + ":" + folderOf(second);
    expectFound(path, "tool", makeTool(second, "tool"));
    expectFound(path, "folder", "");
}

TEST(FindProgram, NamesAPlaceThatHoldsInEveryFolder) {
    const TemporaryFolder folder;
    const std::string tool = makeTool(folder, "tool");
    EXPECT_EQ(inChild([&] {
                  ::setenv("PATH", ".", 1);
                  const bool isThere = ::chdir(folder.path("").c_str()) == 0;
                  const std::string found = findProgram("tool");
                  return isThere && found.starts_with('/') && ::chdir("/") == 0 &&
                                 std::filesystem::equivalent(found, tool)
                             ? 0
                             : 1;
              }),
              0);
}

// Starting one ----------------------------------------------------------------------------------

TEST(StartProgram, GetsEveryByteOfItsArguments) {
    const TemporaryFolder folder;
    ASSERT_TRUE(startProgram(makeTool(folder, "tool"), {"%3a two words", "", "'\"$HOME` Ж\xFF"}));
    const std::string text = seen(folder);
    EXPECT_EQ(text.substr(text.find('\n')), "\n%3a two words\n\n'\"$HOME` Ж\xFF\n");
}

TEST(StartProgram, IsNobodysChildAndLeavesNoZombie) {
    const TemporaryFolder folder;
    EXPECT_EQ(inChild([&] {
                  if (!startProgram(makeTool(folder, "tool")))
                      return 1;
                  const std::string session = std::to_string(::getsid(0));
                  const std::string ids = seen(folder); // parent and session
                  if (ids.starts_with(std::to_string(::getpid()) + ' '))
                      return 2;
                  if (ids.substr(0, ids.find('\n')).ends_with(' ' + session))
                      return 3;
                  return ::waitpid(-1, nullptr, WNOHANG) == -1 && errno == ECHILD ? 0 : 4;
              }),
              0);
}

TEST(StartProgram, SaysWhatCouldNotBeStarted) {
    const TemporaryFolder folder;
    EXPECT_FALSE(startProgram(folder.path("no such tool")));
    EXPECT_FALSE(startProgram(folder.make("no right", "#!/bin/sh\n", 0644)));
    EXPECT_FALSE(startProgram(folder.make("no program",
                                          "\x7F"
                                          "ELF",
                                          0755)));
    EXPECT_FALSE(startProgram(""));
    EXPECT_EQ(inChild([] {
                  return !startProgram("/no such tool") && ::waitpid(-1, nullptr, WNOHANG) == -1
                             ? 0
                             : 1;
              }),
              0)
        << "no zombie either";
}

/// A window ignores no SIGPIPE, but what libraries set must not be handed on: programs end quietly
/// by it.
TEST(StartProgram, StartsItWithSigpipeAsItWas) {
    const TemporaryFolder folder;
    const std::string tool = folder.make("tool",
                                         "#!/bin/sh\ncd '" + folder.path("") +
                                             "'\ngrep SigIgn /proc/self/status > part; mv part "
                                             "seen\n",
                                         0755);
    EXPECT_EQ(inChild([&] {
                  ::signal(SIGPIPE, SIG_IGN);
                  return startProgram(tool) ? 0 : 1;
              }),
              0);
    const std::string line = seen(folder);
    const unsigned long ignored =
        std::strtoul(line.substr(line.find(':') + 1).c_str(), nullptr, 16);
    EXPECT_EQ(ignored & (1UL << (SIGPIPE - 1)), 0U) << line;
}

} // namespace

} // namespace orbisgrid
