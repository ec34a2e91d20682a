#include "platform/byte_stream.h"
#include "tests/platform/temporary_folder.h"
#include "tests/support/child.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <filesystem>

namespace orbisgrid {

namespace {

using test::TemporaryFolder;

/// What can be read of a file, in pieces of a few bytes.
std::string allOf(const FileDescriptor& file) {
    std::array<char, 7> room{};
    std::string bytes;
    for (;;) {
        const auto count = readNext(file, room);
        if (!count)
            return bytes + "(failed)";
        if (*count == 0)
            return bytes;
        bytes.append(room.data(), *count);
    }
}

TEST(ByteStream, ReadsAFileToItsEnd) {
    const TemporaryFolder folder;
    const std::string content("a\0b\r\n\xFF and more of it", 20);
    const FileDescriptor file = openToRead(folder.make("file", content));
    ASSERT_TRUE(file);
    EXPECT_EQ(allOf(file), content);
    EXPECT_EQ(sizeOfFile(folder.path("file")), content.size());
}

TEST(ByteStream, KnowsAFileByAnyOfItsNames) {
    const TemporaryFolder folder;
    const std::string one = folder.make("one", "same"), other = folder.make("other", "same");
    const FileDescriptor file = openToRead(one);
    std::filesystem::create_symlink(one, folder.path("link"));
    std::filesystem::create_hard_link(one, folder.path("name"));
    for (const std::string& name : {one, folder.path("link"), folder.path("name")})
        EXPECT_TRUE(isSameFile(name, file)) << name;
    EXPECT_FALSE(isSameFile(other, file));
    EXPECT_FALSE(isSameFile(folder.path("none"), file));
    EXPECT_FALSE(isSameFile("/dev/null", openToRead("/dev/null"))) << "it never gives back";
    EXPECT_FALSE(isSameFile(one, FileDescriptor()));
}

TEST(ByteStream, AsksForASizeWithoutOpening) {
    const TemporaryFolder folder;
    const std::string pipe = folder.path("pipe");
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(sizeOfFile(pipe), std::nullopt); // to open it would wait for a writer
    EXPECT_EQ(sizeOfFile(folder.path("none")), std::nullopt);
    EXPECT_EQ(sizeOfFile("/"), std::nullopt);
}

TEST(ByteStream, SaysWhyItCannotRead) {
    errno = 0;
    EXPECT_FALSE(openToRead("/nowhere/file"));
    EXPECT_EQ(errno, ENOENT);
    const FileDescriptor folder = openToRead("/");
    ASSERT_TRUE(folder);
    EXPECT_EQ(allOf(folder), "(failed)");
    EXPECT_EQ(errno, EISDIR);
    EXPECT_EQ(reasonOf(ENOENT), "No such file or directory");
}

TEST(ByteStream, SaysWhyItCannotWrite) {
    const FileDescriptor full(::open("/dev/full", O_WRONLY | O_CLOEXEC));
    EXPECT_FALSE(writeNext(full, "x"));
    EXPECT_EQ(errno, ENOSPC);
    EXPECT_TRUE(writeNext(full, ""));
}

/// A pipe whose other end is a child that takes its time, and a signal every millisecond meanwhile.
TEST(ByteStream, GoesOnAfterASignalAndWritesEveryPiece) {
    EXPECT_EQ(test::inChild([] {
                  std::array<int, 2> pipe{};
                  if (::pipe(pipe.data()) != 0)
                      return 1;

                  struct sigaction action = {};

                  action.sa_handler = [](int) {};
                  ::sigaction(SIGALRM, &action, nullptr);
                  const itimerval often{{0, 1000}, {0, 1000}};
                  const std::string bytes(1'000'000, 'x');
                  if (::fork() == 0) {
                      ::close(pipe[0]);
                      ::setitimer(ITIMER_REAL, &often, nullptr);
                      ::_exit(writeNext(FileDescriptor(pipe[1]), bytes) ? 0 : 1);
                  }
                  ::close(pipe[1]);
                  ::setitimer(ITIMER_REAL, &often, nullptr);
                  const FileDescriptor file(pipe[0]);
                  std::array<char, 4096> room{};
                  std::size_t total = 0;
                  while (const auto count = readNext(file, room)) {
                      if (*count == 0)
                          return total == bytes.size() ? 0 : 2;
                      total += *count;
                      ::usleep(100);
                  }
                  return 3;
              }),
              0);
}

TEST(ByteStream, KnowsATerminal) {
    const FileDescriptor terminal(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC));
    EXPECT_TRUE(isTerminal(terminal));
    EXPECT_FALSE(isTerminal(openToRead("/dev/null")));
}

} // namespace

} // namespace orbisgrid
