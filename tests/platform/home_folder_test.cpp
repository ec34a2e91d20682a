#include "tests/support/child.h"

#include <gtest/gtest.h>

#include <string>

namespace orbisgrid {

namespace {

using test::shell;

/// HOME in a process that started with these changes to its environment, and called provideHome.
std::string homeWith(const std::string& change) {
    return shell("env " + change + " '" ORBISGRID_PROBE "' home").output;
}

TEST(HomeFolder, ANamedOneStays) {
    EXPECT_EQ(homeWith("HOME=/some/where"), "/some/where\n");
}

TEST(HomeFolder, AMissingOneComesFromTheSystem) {
    const std::string known = shell("getent passwd $(id -u) | cut -d : -f 6").output;
    ASSERT_GT(known.size(), 1U);
    EXPECT_EQ(homeWith("-u HOME"), known);
    EXPECT_EQ(homeWith("HOME="), known);
}

} // namespace

} // namespace orbisgrid
