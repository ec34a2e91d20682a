#include "tests/desktop/program.h"
#include "tests/desktop/started_window.h"
#include "tests/support/child.h"
#include "tests/support/x_server.h"

#include <gtest/gtest.h>

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

} // namespace

} // namespace orbisgrid
