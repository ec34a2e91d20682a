#include "map/picture.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace orbisgrid {

namespace {

TEST(Roles, HaveNamesOfTheirOwn) {
    std::set<std::string> names;
    for (int i = 0; i < roleCount; ++i) {
        const std::string name(roleName(static_cast<Role>(i)));
        EXPECT_EQ(name.find_first_not_of("abcdefghijklmnopqrstuvwxyz-"), std::string::npos) << name;
        names.insert(name);
    }
    EXPECT_EQ(names.size(), static_cast<std::size_t>(roleCount));
    EXPECT_EQ(roleName(Role::shortPath), "short-path");
    EXPECT_EQ(roleName(static_cast<Role>(roleCount - 1)), "note") << "the last one";
}

TEST(PicturePoint, BothOfItsNumbersCount) {
    EXPECT_EQ((Picture::Point{1, 2}), (Picture::Point{1, 2}));
    EXPECT_NE((Picture::Point{1, 2}), (Picture::Point{0, 2}));
    EXPECT_NE((Picture::Point{1, 2}), (Picture::Point{1, 0}));
}

} // namespace

} // namespace orbisgrid
