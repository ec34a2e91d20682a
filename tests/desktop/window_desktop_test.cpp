#include "tests/desktop/program.h"
#include "tests/support/x_server.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace orbisgrid {

namespace {

using test::Program;
using test::shell;
using test::waitForWindow;
using test::xdotool;

/// The window of the real program under a real window manager.
class WindowDesktopTest : public testing::Test {
protected:
    void SetUp() override {
        m_server.useInThisProcess();
        m_server.startWindowManager();
    }

    void open() {
        m_window = m_program.startWindow();
        ASSERT_FALSE(m_window.empty())
            << "no window; the program " << (m_program.hasEnded() ? "has ended" : "runs") << "\n"
            << shell("xwininfo -root -tree 2>&1; xprop -root _NET_SUPPORTING_WM_CHECK 2>&1").output;
        xdotool("windowfocus --sync " + m_window);
    }

    void openOnTop() {
        open();
        key("alt+s");
        EXPECT_TRUE(propertyComesTo("_NET_WM_STATE", "_NET_WM_STATE_ABOVE", true));
    }

    /// Types into whatever has the focus, key after key as fingers do.
    static void type(const std::string& text) { xdotool("type --delay 5 '" + text + "'"); }

    static void key(const std::string& name) { xdotool("key --clearmodifiers " + name); }

    void calculate(const std::string& home, const std::string& target) {
        key("alt+h");
        type(home);
        key("alt+t");
        type(target);
        key("Return");
    }

    /// The same, until the result is there: then the decimal latitude can be copied.
    void calculateToTheEnd(const std::string& home, const std::string& target) {
        calculate(home, target);
        key("alt+d");
        key("ctrl+c");
        EXPECT_TRUE(test::waitUntil([] { return !test::clipboardText().empty(); }, 30));
    }

    std::string property(const std::string& name) const {
        return shell("xprop -id " + m_window + " " + name).output;
    }

    /// Waits until the window's property holds (or no longer holds) a text.
    bool propertyComesTo(const std::string& name, const std::string& text, bool isThere) const {
        return test::waitUntil(
            [&] { return (property(name).find(text) != std::string::npos) == isThere; }, 30);
    }

    std::string geometry() const {
        return shell("xwininfo -id " + m_window + " | grep -E 'Absolute|Width|Height'").output;
    }

    /// Place of the frame, which is what the window's position means: "100 200\n".
    std::string framePlace() const {
        return shell("xwininfo -id " + m_window +
                     " | awk '/Absolute/ {a[$3] = $4} /Relative/ {r[$3] = $4}"
                     " END {print a[\"X:\"] - r[\"X:\"], a[\"Y:\"] - r[\"Y:\"]}'")
            .output;
    }

    /// How many windows the program has, menus among them.
    static std::string windowCount() {
        return shell("xwininfo -root -tree | grep -c orbisgrid").output;
    }

    /// Right-clicks down the left half of the window until the locator box answers with its menu.
    bool openMenuWithTheMouse() const {
        const std::string before = windowCount();
        for (int y = 120; y < 260; y += 20) {
            xdotool("mousemove --window " + m_window + " 150 " + std::to_string(y) + " click 3");
            if (test::waitUntil([&] { return windowCount() != before; }, 1))
                return true;
        }
        return false;
    }

    /// The report's button is the third before the locator box in the tab ring; the buttons of both
    /// maps are between them.
    void copyReport() const {
        key("alt+l");
        for (int i = 0; i < 3; ++i)
            key("shift+Tab");
        key("space");
        EXPECT_TRUE(test::waitUntil([] { return !test::clipboardText().empty(); }, 30));
    }

    void close() {
        key("ctrl+q");
        ASSERT_TRUE(test::waitUntil([this] { return m_program.hasEnded(); }, 30));
    }

    test::XServer m_server;
    Program m_program;
    std::string m_window;
};

TEST_F(WindowDesktopTest, HasExactlyItsTitle) {
    open();
    EXPECT_NE(property("_NET_WM_NAME").find("= \"Orbisgrid\"\n"), std::string::npos);
}

TEST_F(WindowDesktopTest, TheTitleNoteFollowsTheTitle) {
    m_program.changeIni("\r\n;\r\n", "\r\n;  ZZ9QX at home\r\n");
    open();
    EXPECT_NE(property("_NET_WM_NAME").find("= \"Orbisgrid -   ZZ9QX at home\"\n"),
              std::string::npos);
    close();
    EXPECT_NE(m_program.ini().find("\r\n;  ZZ9QX at home\r\n"), std::string::npos);
}

TEST_F(WindowDesktopTest, TypedLocatorsAreKeptInTheFile) {
    open();
    calculate("jo20aw", "fn42aa");
    close();
    EXPECT_NE(m_program.ini().find("[Home data]\r\nJO20AW\r\n[**end**]\r\n"), std::string::npos);
    EXPECT_NE(m_program.ini().find("[Target data]\r\nFN42AA\r\n[**end**]\r\n"), std::string::npos);
}

TEST_F(WindowDesktopTest, EachStartIsCounted) {
    const std::string store = (m_program.configFolder() / "ZZ9QX.ini").string();
    for (const char* next : {"UseCounter=2\n", "UseCounter=3\n"}) {
        open();
        close();
        EXPECT_EQ(shell("grep UseCounter " + store).output, next);
    }
}

TEST_F(WindowDesktopTest, ACopiedTextOutlivesTheWindow) {
    open();
    calculate("jo20aw", "fn42aa");
    copyReport();
    const std::string copied = test::clipboardText();
    EXPECT_EQ(copied.substr(0, 23), "Home locator  :JO20AW\r\n");
    const auto start = std::chrono::steady_clock::now();
    close();
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(3));
    EXPECT_EQ(test::clipboardText(), copied);
}

TEST_F(WindowDesktopTest, AClipboardClearedByOthersStaysClear) {
    open();
    calculate("jo20aw", "fn42aa");
    copyReport();
    // Another program takes the clipboard and ends: it has no owner then. One that goes into the
    // background by itself does so before it has the clipboard.
    pid_t other = test::startChild([this] {
        test::becomeCommand("xclip -quiet -i -selection clipboard '" +
                            (m_program.folder() / "Orbisgrid.ini").string() + "' 2>/dev/null");
    });
    EXPECT_TRUE(test::waitUntil([this] { return test::clipboardText() == m_program.ini(); }, 30));
    test::endChild(other, SIGTERM);
    close();
    EXPECT_EQ(test::clipboardText(), "");
}

/// A window under Xwayland: the compositor's own tool keeps its text.
TEST_F(WindowDesktopTest, ACopiedTextOutlivesTheWindowUnderWayland) {
    const std::filesystem::path tool = m_program.folder().parent_path() / "bin/wl-copy";
    const std::filesystem::path kept = m_program.folder().parent_path() / "kept";
    std::ofstream(tool) << "#!/bin/sh\ncat > '" << kept.string() << "'\n";
    std::filesystem::permissions(tool, std::filesystem::perms::owner_all);
    ::setenv("WAYLAND_DISPLAY", "wayland-9", 1);
    open();
    calculate("jo20aw", "fn42aa");
    copyReport();
    close();
    ::unsetenv("WAYLAND_DISPLAY");
    EXPECT_EQ(shell("head -n 1 '" + kept.string() + "'").output, "Home locator  :JO20AW\r\n");
}

TEST_F(WindowDesktopTest, StaysOnTopWithoutBlinking) {
    open();
    const std::string before = geometry();
    key("alt+s");
    EXPECT_TRUE(propertyComesTo("_NET_WM_STATE", "_NET_WM_STATE_ABOVE", true));
    EXPECT_EQ(geometry(), before);
    key("alt+s");
    EXPECT_TRUE(propertyComesTo("_NET_WM_STATE", "_NET_WM_STATE_ABOVE", false));
    EXPECT_EQ(geometry(), before);
}

TEST_F(WindowDesktopTest, StaysOnTopFromTheStart) {
    m_program.changeIni("[StayonTop]\r\n 0 ", "[StayonTop]\r\n 1 ");
    open();
    EXPECT_TRUE(propertyComesTo("_NET_WM_STATE", "_NET_WM_STATE_ABOVE", true));
    close();
    EXPECT_NE(m_program.ini().find("[StayonTop]\r\n 1 \r\n"), std::string::npos);
}

TEST_F(WindowDesktopTest, ComesBackToItsPlace) {
    m_program.changeIni("[RememberPosition]\r\n 0 ", "[RememberPosition]\r\n 1 ");
    m_program.changeIni("[Left]\r\n 0 ", "[Left]\r\n 1500 ");
    m_program.changeIni("[Top]\r\n 0 ", "[Top]\r\n 3000 ");
    std::string size;
    for (int i = 0; i < 3; ++i) {
        open();
        EXPECT_EQ(framePlace(), "100 200\n");
        size = i == 0 ? geometry() : size;
        EXPECT_EQ(geometry(), size);
        close();
        EXPECT_NE(m_program.ini().find("[Left]\r\n 1500 \r\n[Top]\r\n 3000 \r\n"),
                  std::string::npos)
            << m_program.ini();
    }
}

TEST_F(WindowDesktopTest, TheEndOfASessionSaves) {
    open();
    calculateToTheEnd("jo20aw", "fn42aa");
    EXPECT_TRUE(m_program.terminate());
    EXPECT_NE(m_program.ini().find("[Home data]\r\nJO20AW\r\n"), std::string::npos);
}

TEST_F(WindowDesktopTest, AMissingFileKeepsTheWindowAway) {
    std::filesystem::remove(m_program.folder() / "Orbisgrid.ini");
    EXPECT_EQ(m_program.startWindow(2), "");
    EXPECT_FALSE(m_program.hasEnded());
    EXPECT_TRUE(m_program.terminate());
    EXPECT_FALSE(std::filesystem::exists(m_program.folder() / "Orbisgrid.ini"));
}

TEST_F(WindowDesktopTest, AStoreThatCannotBeWrittenIsReportedAndEndsTheStart) {
    std::filesystem::create_directory(m_program.configFolder() / "ZZ9QX.ini");
    const std::string box = m_program.startWindow();
    ASSERT_FALSE(box.empty());
    EXPECT_NE(shell("xprop -id " + box + " _NET_WM_NAME").output.find("= \"Orbisgrid\"\n"),
              std::string::npos);
    const std::string before = m_program.ini();
    xdotool("windowfocus --sync " + box);
    key("Return");
    EXPECT_TRUE(test::waitUntil([this] { return m_program.hasEnded(); }, 30));
    EXPECT_EQ(m_program.ini(), before);
}

TEST_F(WindowDesktopTest, OfTwoWindowsTheLastClosedWins) {
    open();
    calculateToTheEnd("jo20aw", "fn42aa");
    shell("xclip -i -selection clipboard </dev/null >/dev/null 2>&1"); // its result is forgotten
    EXPECT_TRUE(test::waitUntil([] { return test::clipboardText().empty(); }, 30));
    // The second one works in the folder of the first.
    const test::ShellResult started =
        shell("ORBISGRID_PROGRAM_FOLDER=" + m_program.folder().string() +
              " XDG_CONFIG_HOME=" + m_program.configFolder().string() + " " + ORBISGRID_PROGRAM +
              " >/dev/null 2>&1 & echo $!");
    const std::string second = started.output.substr(0, started.output.find('\n'));
    const std::string window =
        xdotool("search --sync --onlyvisible --pid " + second + " | head -n 1");
    ASSERT_FALSE(window.empty());
    xdotool("windowfocus --sync " + window);
    calculateToTheEnd("kn51aa", "jn00aa");
    EXPECT_TRUE(m_program.terminate());
    EXPECT_NE(m_program.ini().find("[Home data]\r\nJO20AW\r\n[**end**]"), std::string::npos);
    shell("kill -TERM " + second);
    EXPECT_TRUE(test::waitUntil([&] { return test::processHasEnded(second); }, 30));
    EXPECT_NE(m_program.ini().find("[Home data]\r\nKN51AA\r\n[**end**]"), std::string::npos);
}

TEST_F(WindowDesktopTest, TheEndOfASessionSavesWithABoxOpen) {
    open();
    calculate("jo20aw", "fn42aa");
    key("alt+h");
    type("jo");
    key("BackSpace");
    xdotool("key --repeat 6 BackSpace");
    key("alt+c");
    ASSERT_FALSE(waitForWindow("Invalid Home Locator").empty());
    EXPECT_TRUE(m_program.terminate());
    EXPECT_NE(m_program.ini().find("[Home data]\r\nJO20AW\r\n"), std::string::npos);
}

TEST_F(WindowDesktopTest, TheEndOfASessionSavesWithHelpOpen) {
    open();
    calculate("jo20aw", "fn42aa");
    key("F1");
    ASSERT_FALSE(waitForWindow("Help: Manual Orbisgrid").empty());
    EXPECT_TRUE(m_program.terminate());
    EXPECT_NE(m_program.ini().find("[Home data]\r\nJO20AW\r\n"), std::string::npos);
}

TEST_F(WindowDesktopTest, MessageBoxesHaveExactlyTheirTitle) {
    open();
    key("alt+c");
    EXPECT_FALSE(waitForWindow("Invalid Home Locator").empty());
    key("Return");
}

TEST_F(WindowDesktopTest, BoxesComeUpAboveATopmostWindow) {
    openOnTop();
    key("alt+c");
    const std::string box = waitForWindow("Invalid Home Locator");
    ASSERT_FALSE(box.empty());
    // The last of the stacking list is the uppermost.
    const std::string stack = shell("xprop -root _NET_CLIENT_LIST_STACKING").output;
    const std::string hex = shell("printf '0x%x' " + box).output;
    EXPECT_EQ(stack.substr(stack.rfind("0x"), hex.size()), hex) << stack;
    key("Return");
}

TEST_F(WindowDesktopTest, TheMenuSurvivesTheReleaseOfTheMouseButton) {
    open();
    key("alt+l");
    type("jo20aw");
    ASSERT_TRUE(openMenuWithTheMouse());
    key("Down"); // Paste
    key("Down"); // Paste into Home:
    key("Return");
    key("alt+t");
    type("fn42aa");
    key("Return");
    close();
    EXPECT_NE(m_program.ini().find("[Home data]\r\nJO20AW\r\n"), std::string::npos);
}

TEST_F(WindowDesktopTest, TheMapOfThePathOpensBesideAndCloses) {
    open();
    calculate("jo20aw", "fn42aa");
    const auto isShown = [] {
        return shell("xdotool search --onlyvisible --name '^Path on a map$'").status == 0;
    };
    EXPECT_FALSE(isShown());
    key("F2");
    EXPECT_TRUE(test::waitUntil(isShown, 30));
    key("Escape");
    EXPECT_TRUE(test::waitUntil([&] { return !isShown(); }, 30));
}

TEST_F(WindowDesktopTest, TheMapStaysOnTopWithTheMainWindow) {
    openOnTop();
    key("F2");
    const std::string map = waitForWindow("Path on a map");
    ASSERT_FALSE(map.empty());
    const auto isAbove = [&map] {
        return shell("xprop -id " + map + " _NET_WM_STATE").output.find("_NET_WM_STATE_ABOVE") !=
               std::string::npos;
    };
    EXPECT_TRUE(test::waitUntil(isAbove, 30));
    xdotool("windowfocus --sync " + m_window);
    key("alt+s");
    EXPECT_TRUE(propertyComesTo("_NET_WM_STATE", "_NET_WM_STATE_ABOVE", false));
    EXPECT_TRUE(test::waitUntil([&] { return !isAbove(); }, 30));
}

/// Without a mouse: the map has the keys as soon as it is there.
TEST_F(WindowDesktopTest, TheMapOfThePathIsUsedWithKeys) {
    open();
    calculate("jo20aw", "fn42aa");
    key("F2");
    const std::string map = waitForWindow("Path on a map");
    ASSERT_FALSE(map.empty());
    EXPECT_TRUE(test::waitUntil([&] { return xdotool("getactivewindow") == map; }, 30));
    key("Up");         // the cross is on the Target
    key("shift+Left"); // 10 degrees to the left, and farther away
    key("shift+Up");
    key("Return");
    const auto copied = [](const std::string& kind) {
        return shell("timeout 20 xclip -o -selection clipboard -t " + kind + " 2>/dev/null").output;
    };
    const auto isCopied = [&] { return copied("TARGETS").find("svg") != std::string::npos; };
    for (int attempt = 0; attempt < 10 && !isCopied(); ++attempt) {
        const std::string before = windowCount();
        key("Menu");
        test::waitUntil([&] { return windowCount() != before; }, 5);
        key("Up"); // Save picture...
        key("Up"); // Copy picture
        key("Return");
        test::waitUntil(isCopied, 2);
    }
    EXPECT_TRUE(isCopied());
    EXPECT_TRUE(copied("image/png").starts_with("\x89PNG"));
    const std::string svg = copied("image/svg+xml");
    EXPECT_TRUE(svg.starts_with("<?xml")) << svg.substr(0, 100);
    EXPECT_NE(svg.find("<title>Path from JO20AW to "), std::string::npos);
    key("Escape");
    EXPECT_TRUE(test::waitUntil([&] { return xdotool("getactivewindow") == m_window; }, 30));
    close();
    const std::string ini = m_program.ini();
    const std::size_t targets = ini.find("[Target data]\r\n");
    const std::string kept = ini.substr(targets, ini.find("[**end**]", targets) - targets);
    EXPECT_NE(kept.find("FN42AA\r\n"), std::string::npos) << kept;
    EXPECT_EQ(std::count(kept.begin(), kept.end(), '\n'), 3)
        << "the cross is a Target, too: " << kept;
}

TEST_F(WindowDesktopTest, TheMapOpensItsAddress) {
    m_program.changeIni("[NoCheckWebUpdates]\r\n 0 ", "[NoCheckWebUpdates]\r\n 1 ");
    open();
    calculate("jo20aw", "fn42aa");
    key("alt+l");
    key("shift+Tab");
    key("space");
    EXPECT_EQ(m_program.openedAddress(), "http://www.google.com/maps?q=%2042.0208,-71.9583");
}

} // namespace

} // namespace orbisgrid
