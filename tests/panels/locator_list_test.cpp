#include "panels/locator_list.h"

#include <gtest/gtest.h>

namespace orbisgrid {

namespace {

TEST(LocatorList, AppendsInTheOrderOfComing) {
    LocatorList list;
    list.remember(u"JO21AA");
    list.remember(u"AA00AA");
    list.remember(u"JO21AA");
    EXPECT_EQ(list.items, (std::vector<Text>{u"JO21AA", u"AA00AA"}));
}

TEST(LocatorList, NothingSelectedIsWhatAComboBoxCallsIt) {
    EXPECT_EQ(LocatorList().ListIndex, -1);
}

TEST(LocatorList, TextIsTheSelectedItem) {
    LocatorList list;
    EXPECT_EQ(list.text(), u"");
    EXPECT_FALSE(list.select(0));
    list.items = {u"JO21AA"};
    EXPECT_TRUE(list.select(0));
    EXPECT_FALSE(list.select(-1));
    EXPECT_EQ(list.text(), u"JO21AA");
    list.clear();
    EXPECT_EQ(list.text(), u"");
}

} // namespace

} // namespace orbisgrid
