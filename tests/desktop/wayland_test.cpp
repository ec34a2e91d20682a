#include "tests/desktop/program.h"
#include "tests/support/child.h"
#include "tests/support/wayland_compositor.h"

#include <gtest/gtest.h>

#include <csignal>
#include <string>

namespace orbisgrid {

namespace {

using test::WaylandCompositor;

/// The real program under a real Wayland compositor, with no X server anywhere.
class WaylandTest : public testing::Test {
protected:
    void SetUp() override { m_compositor.useInThisProcess(); }

    void TearDown() override { test::endChild(m_window, SIGKILL); }

    WaylandCompositor m_compositor;
    test::Program m_program;
    pid_t m_window = -1;
};

TEST_F(WaylandTest, AJobLeavesItsTextOnTheClipboard) {
    const test::ShellResult result = m_program.run("jo20aw fn42aa", "2>&1");
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(result.output.starts_with("Home locator  :JO20AW\n")) << result.output;
    EXPECT_TRUE(result.output.ends_with("-71.95834W°\n")) << "something on standard error";
    const std::string copied = WaylandCompositor::clipboardText();
    EXPECT_TRUE(copied.starts_with("Home locator  :JO20AW\r\nTarget Locator:FN42AA\r\n")) << copied;
    EXPECT_TRUE(copied.ends_with("-71.95834W°")) << copied;
}

TEST_F(WaylandTest, TheWindowIsTypedIntoCopiesAndSaves) {
    m_window = test::startChild([&] { test::becomeCommand(m_program.windowCommand("")); });
    ASSERT_TRUE(WaylandCompositor::waitForWindow("Orbisgrid"));
    // More than once where the machine is busy: keys that come before the window knows the keyboard
    // are lost.
    const auto copiesLatitude = [] {
        WaylandCompositor::type("-M alt -k h -m alt kn51aa -M alt -k t -m alt jn00aa -k Return "
                                "-M alt -k d -m alt -M ctrl -k c -m ctrl");
        return WaylandCompositor::clipboardText() == " 40.0208";
    };
    EXPECT_TRUE(test::waitUntil(copiesLatitude, 1)) << WaylandCompositor::clipboardText();
    const auto isSaved = [this] {
        WaylandCompositor::type("-M ctrl -k q -m ctrl");
        return m_program.ini().find("[Home data]\r\nKN51AA\r\n") != std::string::npos;
    };
    EXPECT_TRUE(test::waitUntil(isSaved, 1)) << m_program.ini();
    EXPECT_EQ(test::waitForChild(m_window), 0);
    EXPECT_EQ(WaylandCompositor::clipboardText(), " 40.0208") << "after the program's end";
}

} // namespace

} // namespace orbisgrid
