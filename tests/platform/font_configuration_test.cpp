#include "platform/font_configuration.h"
#include "platform/shared_library.h"
#include "tests/platform/temporary_folder.h"
#include "tests/support/child.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sched.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

namespace orbisgrid {

namespace {

using test::inChild;
using test::TemporaryFolder;

/// The folders of fonts that the configuration in memory names; where none is in memory fontconfig
/// reads it now.
std::string folderOfFonts() {
    const SharedLibrary library("libfontconfig.so.1");
    const auto get = [&](const char* name) { return library.function(name); };
    void* folders = reinterpret_cast<void* (*)(void*)>(get("FcConfigGetFontDirs"))(nullptr);
    const char* first = reinterpret_cast<const char* (*)(void*)>(get("FcStrListNext"))(folders);
    return first == nullptr ? "" : first;
}

/// A configuration with a folder of fonts that no other one names.
std::string makeConfiguration(const TemporaryFolder& folder) {
    std::filesystem::create_directory(folder.path("fonts"));
    return folder.make("fonts.conf", "<?xml version=\"1.0\"?><!DOCTYPE fontconfig SYSTEM"
                                     " \"fonts.dtd\"><fontconfig><dir>" +
                                         folder.path("fonts") + "</dir><cachedir>" +
                                         folder.path("cache") + "</cachedir></fontconfig>");
}

/// Whether the configuration is in memory after `work`: its file is gone by the time of the
/// question.
bool isReadBy(const std::function<void()>& work) {
    const TemporaryFolder folder;
    const std::string file = makeConfiguration(folder);
    const int answer = inChild([&] {
        ::setenv("FONTCONFIG_FILE", file.c_str(), 1);
        work();
        std::filesystem::remove(file);
        return folderOfFonts() == folder.path("fonts") ? 1 : 0;
    });
    EXPECT_FALSE(std::filesystem::exists(file)) << "the child did not come so far";
    return answer == 1;
}

TEST(FontConfiguration, IsInMemoryOnceItIsRead) {
    EXPECT_TRUE(isReadBy([] {
        static FontConfiguration fonts; // only `wait` waits for it
        fonts.startReading();
        fonts.wait();
    }));
}

TEST(FontConfiguration, IsNotReadUnlessStarted) {
    EXPECT_FALSE(isReadBy([] { FontConfiguration().wait(); }));
}

TEST(FontConfiguration, TheEndOfTheObjectWaitsForTheReading) {
    EXPECT_TRUE(isReadBy([] { FontConfiguration().startReading(); }));
}

TEST(FontConfiguration, IsReadWhereThereIsOneProcessor) {
    EXPECT_TRUE(isReadBy([] {
        cpu_set_t one;
        CPU_ZERO(&one);
        CPU_SET(static_cast<std::size_t>(::sched_getcpu()), &one);
        if (::sched_setaffinity(0, sizeof one, &one) == 0)
            FontConfiguration().startReading();
    }));
}

/// The processors of the other thread of this process.
cpu_set_t processorsOfTheOther() {
    cpu_set_t processors{};
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/task")) {
        const pid_t thread = std::stoi(entry.path().filename().string());
        if (thread != ::getpid())
            ::sched_getaffinity(thread, sizeof processors, &processors);
    }
    return processors;
}

TEST(FontConfiguration, IsReadOnAnotherProcessor) {
    cpu_set_t own{};
    ::sched_getaffinity(0, sizeof own, &own);
    if (CPU_COUNT(&own) < 2)
        GTEST_SKIP() << "there is no other";
    const TemporaryFolder folder;
    const std::string file = folder.path("fonts.conf");
    ASSERT_EQ(::mkfifo(file.c_str(), 0600), 0);
    EXPECT_EQ(inChild([&] {
                  ::alarm(30);
                  ::setenv("FONTCONFIG_FILE", file.c_str(), 1);
                  FontConfiguration fonts;
                  fonts.startReading();
                  // Opens when the reader does, which then waits for what comes out of the pipe.
                  const int pipe = ::open(file.c_str(), O_WRONLY | O_CLOEXEC);
                  const cpu_set_t others = processorsOfTheOther();
                  const std::string_view empty = "<fontconfig></fontconfig>";
                  const ssize_t written = ::write(pipe, empty.data(), empty.size());
                  ::close(pipe);
                  fonts.wait();
                  return written > 0 && CPU_COUNT(&others) == CPU_COUNT(&own) - 1 ? 0 : 1;
              }),
              0);
}

TEST(FontConfiguration, LeavesItsMakerAllProcessors) {
    EXPECT_EQ(inChild([] {
                  cpu_set_t before{};
                  cpu_set_t after{};
                  ::sched_getaffinity(0, sizeof before, &before);
                  FontConfiguration().startReading();
                  ::sched_getaffinity(0, sizeof after, &after);
                  return CPU_EQUAL(&before, &after) ? 0 : 1;
              }),
              0);
}

TEST(FontConfiguration, TheVariableThatQtRemovesIsTheLastOne) {
    EXPECT_EQ(inChild([] {
                  ::clearenv();
                  ::setenv("DESKTOP_STARTUP_ID", "a-1", 1);
                  ::setenv("HOME", "/nowhere", 1);
                  FontConfiguration fonts;
                  fonts.startReading();
                  fonts.wait();
                  char** last = environ;
                  while (last[1] != nullptr)
                      ++last;
                  return std::string(*last) == "DESKTOP_STARTUP_ID=a-1" ? 0 : 1;
              }),
              0);
}

} // namespace

} // namespace orbisgrid
