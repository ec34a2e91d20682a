#include "platform/clipboard_keeper.h"
#include "tests/desktop/keepers.h"
#include "tests/support/child.h"
#include "tests/support/x_server.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <set>

namespace orbisgrid {

namespace {

using test::comesTrue;
using test::keepersOn;
using test::shell;
using test::ShellResult;

const std::string probe = ORBISGRID_CLIPBOARD_PROBE;

class ClipboardKeeperTest : public testing::Test {
protected:
    void SetUp() override { m_server.useInThisProcess(); }

    static ShellResult copy(const std::string& text) {
        return shell("exec " + probe + " copy '" + text + "'");
    }

    static std::string clipboard(const std::string& target = "UTF8_STRING") {
        return shell("timeout 5 xclip -o -selection clipboard -t " + target + " 2>/dev/null")
            .output;
    }

    /// Another program takes the clipboard.
    static void copyElsewhere(const std::string& text) {
        shell("printf '" + text + "' | xclip -i -selection clipboard >/dev/null 2>&1");
    }

    std::vector<pid_t> keepers() const { return keepersOn(m_server.display()); }

    test::XServer m_server;
};

TEST_F(ClipboardKeeperTest, TextIsThereAfterTheProgramHasEnded) {
    for (const std::string text : {"JO20AW", "two\r\nlines\r\n", "Grüße 4.04°", "Ж 日本 📡", ""}) {
        const ShellResult result = copy(text);
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(result.output, text);
        EXPECT_EQ(clipboard(), text);
        EXPECT_EQ(clipboard(), text) << "and it stays";
    }
}

TEST_F(ClipboardKeeperTest, LargeTextIsGivenWhole) {
    const std::string text(100000, 'x');
    EXPECT_EQ(copy(text).status, 0);
    EXPECT_EQ(clipboard(), text);
}

TEST_F(ClipboardKeeperTest, CallerGetsItsPipesBack) {
    const std::string call = probe + " copy JO20AW";
    // Reading ends when nobody holds the pipe any more: on standard output, on standard error, and
    // on a descriptor that the program knows nothing of.
    for (const std::string& line :
         {call, "x=$(" + call + "); echo $x", call + " 2>&1 >/dev/null", "(" + call + ") 7>&1"}) {
        const ShellResult result = shell(line);
        EXPECT_EQ(result.status, 0) << line;
        EXPECT_LT(result.seconds, 2) << line;
    }
    EXPECT_EQ(clipboard(), "JO20AW");
}

TEST_F(ClipboardKeeperTest, WorksWithClosedStandardDescriptors) {
    EXPECT_EQ(shell(probe + " copy one <&-").status, 0);
    EXPECT_EQ(clipboard(), "one");
    EXPECT_EQ(shell(probe + " copy two <&- >&- 2>&-").status, 0);
    EXPECT_EQ(clipboard(), "two");
}

TEST_F(ClipboardKeeperTest, KeeperHoldsNothingOfTheCaller) {
    copy("JO20AW");
    ASSERT_EQ(keepers().size(), 1U);
    const std::string process = "/proc/" + std::to_string(keepers().front());
    std::set<std::string> open;
    const auto lookAt = [&] {
        open.clear();
        std::error_code error; // what is closed meanwhile is passed over
        for (const auto& entry : std::filesystem::directory_iterator(process + "/fd")) {
            const std::string target = std::filesystem::read_symlink(entry.path(), error);
            open.insert(target.substr(0, target.find(':')));
        }
        return open == std::set<std::string>{"/dev/null", "socket"};
    };
    // A moment after its answer the keeper closes the pipe that carried it.
    EXPECT_TRUE(comesTrue(lookAt)) << testing::PrintToString(open);
    EXPECT_EQ(std::filesystem::read_symlink(process + "/cwd"), "/");
    EXPECT_NE(::getsid(keepers().front()), ::getsid(0)) << "a terminal that closes ends it not";
}

TEST_F(ClipboardKeeperTest, EndsWhenAnotherProgramTakesTheClipboard) {
    copy("JO20AW");
    EXPECT_EQ(keepers().size(), 1U);
    copyElsewhere("FN42AA");
    EXPECT_TRUE(comesTrue([&] { return keepers().empty(); }));
    EXPECT_EQ(clipboard(), "FN42AA");
}

TEST_F(ClipboardKeeperTest, SecondKeeperTakesThePlaceOfTheFirst) {
    copy("JO20AW");
    const std::vector<pid_t> first = keepers();
    copy("FN42AA");
    EXPECT_TRUE(comesTrue([&] { return keepers().size() == 1; }));
    EXPECT_NE(keepers(), first);
    EXPECT_EQ(clipboard(), "FN42AA");
}

TEST_F(ClipboardKeeperTest, EndsWithTheServer) {
    copy("JO20AW");
    EXPECT_EQ(keepers().size(), 1U);
    m_server.stop();
    EXPECT_TRUE(comesTrue([&] { return keepers().empty(); }));
}

TEST_F(ClipboardKeeperTest, SurvivesARequestorThatGoesAway) {
    copy("JO20AW");
    for (int i = 0; i < 20; ++i)
        shell("xclip -o -selection clipboard >/dev/null & kill -9 $!");
    EXPECT_EQ(clipboard(), "JO20AW");
}

TEST_F(ClipboardKeeperTest, OwnerIsSeen) {
    const auto hasOwner = [] { return shell(probe + " has-owner").status == 0; };
    EXPECT_FALSE(hasOwner());
    copy("JO20AW");
    EXPECT_TRUE(hasOwner());
    // Another program takes it and ends: nobody owns it then.
    pid_t other = test::startChild([] {
        test::becomeCommand("xclip -i -selection clipboard -quiet </dev/null >/dev/null 2>&1");
    });
    EXPECT_TRUE(comesTrue([&] { return keepers().empty(); }));
    test::endChild(other, SIGTERM);
    EXPECT_TRUE(comesTrue([&] { return !hasOwner(); }));
}

// From a running window -------------------------------------------------------------------------

TEST_F(ClipboardKeeperTest, WindowHandsOverByAProcessOfItsOwn) {
    for (const std::string text : {"JO20AW", "Ж 日本 📡\r\n"}) {
        EXPECT_EQ(shell("exec " + probe + " window '" + text + "'").status, 0);
        EXPECT_EQ(clipboard(), text) << "it is there as soon as the call has returned";
        EXPECT_TRUE(comesTrue([&] { return keepers().size() == 1; })) << "the one before ends";
    }
}

TEST_F(ClipboardKeeperTest, WindowIsToldOfAFailure) {
    EXPECT_EQ(shell("DISPLAY= exec " + probe + " window x").status, 1);
    EXPECT_FALSE(startClipboardKeeper("/no/such/program", "x"));
}

// Without a server ------------------------------------------------------------------------------

TEST(ClipboardWithoutServer, IsSaidAtOnceAndTheTextIsPrinted) {
    for (const std::string display : {"''", ":4711", "nonsense"}) {
        const ShellResult result =
            shell("env -u WAYLAND_DISPLAY DISPLAY=" + display + " " + probe + " copy JO20AW");
        EXPECT_EQ(result.status, 1) << display;
        EXPECT_EQ(result.output, "JO20AW") << display;
        EXPECT_LT(result.seconds, 2) << display;
    }
}

// Wayland, with a program in the place of wl-copy ------------------------------------------------

class WaylandToolTest : public testing::Test {
protected:
    WaylandToolTest() {
        m_folder = shell("mktemp -d").output;
        m_folder.pop_back();
    }

    ~WaylandToolTest() override { std::filesystem::remove_all(m_folder); }

    void makeTool(const std::string& body) const {
        const std::string path = m_folder + "/wl-copy";
        std::ofstream(path) << "#!/bin/sh\n" << body << '\n';
        ::chmod(path.c_str(), 0755);
    }

    ShellResult copy(const std::string& text) const {
        return shell("WAYLAND_DISPLAY=wayland-9 DISPLAY=:4711 PATH=" + m_folder + ":$PATH exec " +
                     probe + " copy '" + text + "'");
    }

    std::string content(const std::string& name) const {
        return shell("cat " + m_folder + "/" + name + " 2>&1").output;
    }

    std::string m_folder;
};

TEST_F(WaylandToolTest, GetsTheTextOnItsStandardInput) {
    makeTool("echo \"$@\" > " + m_folder + "/arguments; cat > " + m_folder + "/text");
    EXPECT_EQ(copy("Ж\r\n-t").status, 0);
    EXPECT_EQ(content("arguments"), "-t text/plain\n");
    EXPECT_EQ(content("text"), "Ж\r\n-t");
}

TEST_F(WaylandToolTest, FailureIsToldAndTheCallerGetsItsPipesBack) {
    makeTool("exit 1");
    EXPECT_EQ(copy("JO20AW").status, 1);
    makeTool("(sleep 20) & exit 0"); // what stays behind holds no pipe
    const ShellResult result = copy("JO20AW");
    EXPECT_EQ(result.status, 0);
    EXPECT_LT(result.seconds, 2);
}

TEST_F(WaylandToolTest, HangingToolIsNotWaitedForLonger) {
    makeTool("exec sleep 20");
    ::setenv("WAYLAND_DISPLAY", "wayland-9", 1);
    const std::string path = std::getenv("PATH");
    ::setenv("PATH", (m_folder + ":" + path).c_str(), 1);
    ClipboardHandover handover = ClipboardHandover::start("JO20AW");
    const auto start = std::chrono::steady_clock::now();
    EXPECT_FALSE(handover.wait(std::chrono::milliseconds(100)));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
    ::setenv("PATH", path.c_str(), 1);
    ::unsetenv("WAYLAND_DISPLAY");
}

} // namespace

} // namespace orbisgrid
