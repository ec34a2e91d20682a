#include "tests/desktop/program.h"
#include "tests/desktop/started_window.h"
#include "tests/support/child.h"
#include "tests/support/x_server.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>

namespace orbisgrid {

namespace {

using test::shell;

/// The window on a desktop that asks for everything a quarter or a half larger.
class ScaledScreenTest : public testing::TestWithParam<int> {
protected:
    void SetUp() override { m_server.useInThisProcess(); }

    /// "WIDTH=606 HEIGHT=422", with a policy of Qt's in the place of the program's own where one is
    /// named; empty where no window came.
    static std::string windowSize(int dotsPerInch, const std::string& policy = {}) {
        shell("xprop -root -f RESOURCE_MANAGER 8s -set RESOURCE_MANAGER \"$(printf 'Xft.dpi:\\t" +
              std::to_string(dotsPerInch) + "')\"");
        const test::Program program;
        const test::StartedWindow window(program.windowCommand(
            policy.empty() ? "" : "QT_SCALE_FACTOR_ROUNDING_POLICY=" + policy));
        EXPECT_FALSE(window.id().empty());
        return shell("xdotool getwindowgeometry --shell " + window.id() +
                     " | grep -E 'WIDTH|HEIGHT' | tr '\\n' ' '")
            .output;
    }

    test::XServer m_server;
};

/// Lines between pixels would be lost or drawn twice; fonts follow the desktop at any size.
TEST_P(ScaledScreenTest, OnlyFontsGrowBetweenTwoWholeScales) {
    constexpr int usual = 96;
    const std::string size = windowSize(GetParam());
    EXPECT_NE(size, windowSize(usual)) << "fonts have not grown";
    EXPECT_EQ(size, windowSize(GetParam(), "RoundPreferFloor"));
    EXPECT_NE(size, windowSize(GetParam(), "PassThrough")) << "everything has grown";
}

INSTANTIATE_TEST_SUITE_P(DotsPerInch, ScaledScreenTest, testing::Values(120, 144));

/// The map is the window that wants most room.
TEST(SmallScreenTest, TheMapOpensOnItWithItsFrame) {
    test::XServer server("800x600x24");
    server.useInThisProcess();
    server.startWindowManager();
    const test::Program program;
    const test::StartedWindow window(program.windowCommand(""));
    ASSERT_FALSE(window.id().empty());
    test::xdotool("windowfocus --sync " + window.id());
    test::xdotool("key --clearmodifiers F2");
    const std::string map = test::waitForWindow("Path on a map");
    ASSERT_FALSE(map.empty());
    // Left, right, top and bottom of the frame, and the place and size of what is within.
    const auto measured = [&] {
        return shell("xprop -id " + map +
                     " _NET_FRAME_EXTENTS | grep -oE '[0-9]+' | tr '\\n' ' ';"
                     " xwininfo -id " +
                     map + " | awk '/Absolute|Width:|Height:/ {print $NF}'")
            .output;
    };
    std::string numbers;
    EXPECT_TRUE(test::waitUntil(
        [&] {
            numbers = measured();
            return std::count(numbers.begin(), numbers.end(), '\n') == 4;
        },
        30));
    std::istringstream stream(numbers);
    int left = 0, right = 0, top = 0, bottom = 0, x = 0, y = 0, width = 0, height = 0;
    stream >> left >> right >> top >> bottom >> x >> y >> width >> height;
    ASSERT_FALSE(stream.fail()) << numbers;
    EXPECT_GT(top, 0) << "no frame";
    EXPECT_GE(x - left, 0) << numbers;
    EXPECT_GE(y - top, 0) << numbers;
    EXPECT_LE(x + width + right, 800) << numbers;
    EXPECT_LE(y + height + bottom, 600) << numbers;
    EXPECT_GT(height, 400) << "it takes the room that there is";
}

} // namespace

} // namespace orbisgrid
