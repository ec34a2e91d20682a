#include "platform/clipboard_route.h"
#include "platform/display.h"
#include "platform/online.h"
#include "tests/platform/temporary_folder.h"
#include "tests/support/child.h"
#include "tests/support/table.h"

#include <sched.h>
#include <unistd.h>

namespace orbisgrid {

namespace {

using test::Row;
using test::shell;
using test::TemporaryFolder;

std::string variable(const Row& row, std::string_view column) {
    const std::string& value = row[column];
    return value == "-" ? std::string() : value;
}

// Display ---------------------------------------------------------------------------------------

class DisplayTest : public testing::TestWithParam<Row> {};

TEST_P(DisplayTest, IsFoundByTheEnvironment) {
    const Row& row = GetParam();
    EXPECT_EQ(hasDisplay({variable(row, "DISPLAY"), variable(row, "WAYLAND_DISPLAY"),
                          variable(row, "QT_QPA_PLATFORM")}),
              row.flag("has a display"));
}

INSTANTIATE_TEST_SUITE_P(Rows, DisplayTest, testing::ValuesIn(test::readTable("display.tsv")),
                         test::testName);

TEST(Display, MayBeWaylands) {
    EXPECT_FALSE(mayUseWayland({}));
    EXPECT_FALSE(mayUseWayland({":0", {}, "xcb"}));
    EXPECT_FALSE(mayUseWayland({":0", {}, {}, "x11"}));
    EXPECT_TRUE(mayUseWayland({":0", "wayland-0", {}}));
    EXPECT_TRUE(mayUseWayland({{}, {}, "xcb;wayland-egl"}));
    EXPECT_TRUE(mayUseWayland({{}, {}, {}, "wayland"}));
}

TEST(Display, EnvironmentOfThisProcess) {
    const auto with = [](const char* name, const char* value) {
        return test::inChild([&] {
            for (const char* each : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
                ::unsetenv(each);
            ::setenv(name, value, 1);
            return (hasDisplay(displayEnvironment()) ? 1 : 0) + (isDesktopSession() ? 2 : 0);
        });
    };
    EXPECT_EQ(with("DISPLAY", ":4711"), 1) << "it is named, but no server answers there";
    EXPECT_EQ(with("WAYLAND_DISPLAY", "wayland-0"), 3);
    EXPECT_EQ(with("QT_QPA_PLATFORM", "offscreen"), 1) << "nobody sees a window there";
    EXPECT_EQ(with("DISPLAY", ""), 0);
}

// Clipboard route -------------------------------------------------------------------------------

std::string nameOf(ClipboardRoute route) {
    switch (route) {
    case ClipboardRoute::waylandTool:
        return "waylandTool";
    case ClipboardRoute::x11Keeper:
        return "x11Keeper";
    case ClipboardRoute::none:
        break;
    }
    return "none";
}

class ClipboardRouteTest : public testing::TestWithParam<Row> {};

TEST_P(ClipboardRouteTest, IsChosenByTheEnvironment) {
    const Row& row = GetParam();
    EXPECT_EQ(nameOf(clipboardRoute({variable(row, "WAYLAND_DISPLAY"), variable(row, "DISPLAY"),
                                     row.flag("wl-copy on the PATH")})),
              row["route"]);
}

/// The same of the process's own environment, with and without a tool on its PATH.
TEST_P(ClipboardRouteTest, IsChosenByTheProcessEnvironment) {
    const Row& row = GetParam();
    const TemporaryFolder folder;
    if (row.flag("wl-copy on the PATH"))
        folder.make("wl-copy", "#!/bin/sh\n", 0755);
    const int route = test::inChild([&] {
        ::setenv("PATH", folder.path("").c_str(), 1);
        ::setenv("WAYLAND_DISPLAY", variable(row, "WAYLAND_DISPLAY").c_str(), 1);
        ::setenv("DISPLAY", variable(row, "DISPLAY").c_str(), 1);
        return static_cast<int>(clipboardRoute());
    });
    EXPECT_EQ(nameOf(static_cast<ClipboardRoute>(route)), row["route"]);
}

INSTANTIATE_TEST_SUITE_P(Rows, ClipboardRouteTest,
                         testing::ValuesIn(test::readTable("clipboard_route.tsv")), test::testName);

// Online ----------------------------------------------------------------------------------------

class OnlineTest : public testing::TestWithParam<Row> {};

TEST_P(OnlineTest, IsFoundInTheRoutes) {
    const Row& row = GetParam();
    EXPECT_EQ(hasDefaultRoute(row["/proc/net/route"], row["/proc/net/ipv6_route"]),
              row.flag("online"));
}

INSTANTIATE_TEST_SUITE_P(Rows, OnlineTest, testing::ValuesIn(test::readTable("online.tsv")),
                         test::testName);

TEST(Online, NetworkOfItsOwnHasNoWayOut) {
    constexpr int cannotLeave = 77;
    const int result = test::inChild([] {
        if (::unshare(CLONE_NEWNET | (::geteuid() == 0 ? 0 : CLONE_NEWUSER)) != 0)
            return cannotLeave;
        return isOnline() ? 1 : 0;
    });
    if (result == cannotLeave)
        GTEST_SKIP() << "SKIPPED: this user may not make a network of its own";
    EXPECT_EQ(result, 0);
}

TEST(Online, AgreesWithTheTablesOfTheSystem) {
    const std::string routes = shell("cat /proc/net/route").output;
    const std::string ipv6Routes = shell("cat /proc/net/ipv6_route 2>/dev/null").output;
    ASSERT_NE(routes.find("Destination"), std::string::npos);
    EXPECT_EQ(isOnline(), hasDefaultRoute(routes, ipv6Routes));
}

} // namespace

} // namespace orbisgrid
