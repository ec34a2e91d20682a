#include "settings/settings_store.h"
#include "tests/settings/memory_store.h"

#include <gtest/gtest.h>

namespace orbisgrid {

namespace {

TEST(RegistryStuff, WritesThreeKeysInOrder) {
    test::MemoryStore store;
    EXPECT_TRUE(RegistryStuff(store, u"/opt/orbis grid", u" 3.1.1 "));
    const std::vector<Text> order{u"Path", u"Version", u"EXE"};
    EXPECT_EQ(store.keysInOrder, order);
    EXPECT_EQ(store.values[u"Path"], u"/opt/orbis grid");
    EXPECT_EQ(store.values[u"Version"], u"3.1.1");
    EXPECT_EQ(store.values[u"EXE"], u"Orbisgrid.exe");
}

TEST(RegistryStuff, LeavesTheCounterAlone) {
    test::MemoryStore store;
    store.values[u"UseCounter"] = Text(u"7");
    EXPECT_TRUE(RegistryStuff(store, u"/", u"3.1.1"));
    EXPECT_EQ(store.values[u"UseCounter"], u"7");
}

TEST(RegistryStuff, ReportsAStoreThatCannotBeWritten) {
    test::MemoryStore store;
    store.isWritable = false;
    EXPECT_FALSE(RegistryStuff(store, u"/", u"3.1.1"));
}

} // namespace

} // namespace orbisgrid
