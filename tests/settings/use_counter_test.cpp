#include "settings/use_counter.h"
#include "tests/settings/memory_store.h"
#include "tests/support/one_start.h"
#include "tests/support/table.h"

namespace orbisgrid {

namespace {

using test::MemoryStore;
using test::Row;

class UseCounterTest : public testing::TestWithParam<Row> {};

TEST_P(UseCounterTest, IsReadAndAdvanced) {
    const Row& row = GetParam();
    const std::int32_t counter = useCounterFrom(row.text("stored"));
    EXPECT_EQ(counter, row.number("this start"));
    const std::optional<Text> next = nextUseCounter(counter);
    EXPECT_EQ(next ? toUtf8(*next) : "none", row["stored next"]);
}

TEST_P(UseCounterTest, IsAdvancedInTheStore) {
    const Row& row = GetParam();
    MemoryStore store;
    store.values[u"UseCounter"] = row.text("stored");
    EXPECT_EQ(test::oneStart(store), row.number("this start"));
    const std::string left = row["stored next"] == "none" ? row["stored"] : row["stored next"];
    EXPECT_EQ(toUtf8(store.values[u"UseCounter"]), left);
}

INSTANTIATE_TEST_SUITE_P(Rows, UseCounterTest,
                         testing::ValuesIn(test::readTable("use_counter.tsv")), test::testName);

TEST(UseCounter, FirstStartShowsOneAndStoresTwo) {
    MemoryStore store;
    EXPECT_TRUE(RegistryStuff(store, u"/", u"3.1.1"));
    EXPECT_EQ(test::oneStart(store), 1);
    EXPECT_EQ(store.values[u"UseCounter"], u"2");
    EXPECT_EQ(test::oneStart(store), 2);
}

TEST(UseCounter, OpensTheHomePageAtTheTwentiethStartAndEveryThirtiethFromThere) {
    for (const std::int32_t counter : {20, 50, 80, 3'000'020})
        EXPECT_TRUE(opensHomePage(counter)) << counter;
    for (const std::int32_t counter : {-10, 0, 1, 19, 21, 30, 49, 60})
        EXPECT_FALSE(opensHomePage(counter)) << counter;
}

TEST(UseCounter, UnreadableStoreGivesZero) {
    MemoryStore store;
    store.isReadable = store.isWritable = false;
    store.values[u"UseCounter"] = Text(u"9");
    EXPECT_EQ(test::oneStart(store), 0);
    EXPECT_EQ(store.values[u"UseCounter"], u"9");
}

TEST(UseCounter, UnwritableStoreIsPassedOver) {
    MemoryStore store;
    store.isWritable = false;
    store.values[u"UseCounter"] = Text(u"9");
    EXPECT_EQ(test::oneStart(store), 9);
    EXPECT_EQ(store.values[u"UseCounter"], u"9");
}

} // namespace

} // namespace orbisgrid
