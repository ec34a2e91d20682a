#include "settings/store_text.h"
#include "tests/support/table.h"

namespace orbisgrid {

namespace {

using test::Row;

class StoredValueTest : public testing::TestWithParam<Row> {};

TEST_P(StoredValueTest, ResolvesEscapes) {
    const Row& row = GetParam();
    const std::optional<Text> value = storedValue(row["content"], u"Path");
    EXPECT_EQ(value ? toUtf8(*value) : "-", row["value"]);
}

INSTANTIATE_TEST_SUITE_P(Rows, StoredValueTest,
                         testing::ValuesIn(test::readTable("store_value.tsv")), test::testName);

class WithStoredValuesTest : public testing::TestWithParam<Row> {};

TEST_P(WithStoredValuesTest, ChangesNothingElse) {
    const Row& row = GetParam();
    const std::string changed = withStoredValues(row["before"], {{u"UseCounter", u"8"}});
    EXPECT_EQ(changed, row["afterwards"]);
    EXPECT_EQ(withStoredValues(changed, {{u"UseCounter", u"8"}}), changed);
    EXPECT_EQ(storedValue(changed, u"UseCounter"), u"8");
}

INSTANTIATE_TEST_SUITE_P(Rows, WithStoredValuesTest,
                         testing::ValuesIn(test::readTable("store_text.tsv")), test::testName);

class WrittenValueTest : public testing::TestWithParam<Row> {};

TEST_P(WrittenValueTest, IsEscapedAndReadBack) {
    const Row& row = GetParam();
    const Text value = fromUtf8(row["value"]);
    const std::string content = withStoredValues("", {{u"Path", value}});
    EXPECT_EQ(content, "[Orbisgrid]\nPath=" + row["written"] + "\n");
    EXPECT_EQ(storedValue(content, u"Path"), value);
}

INSTANTIATE_TEST_SUITE_P(Rows, WrittenValueTest,
                         testing::ValuesIn(test::readTable("store_written.tsv")), test::testName);

/// A folder's name may hold anything; half a pair is no character and is written as such.
TEST(WithStoredValues, WritesAHighSurrogateWithoutItsPartner) {
    const Text lone{u'a', char16_t{0xD83D}};
    EXPECT_EQ(withStoredValues("", {{u"Path", lone}}), "[Orbisgrid]\nPath=a\xEF\xBF\xBD\n");
}

TEST(WithStoredValues, HalfAPairHidesNothingThatNeedsAnEscape) {
    const Text lone{char16_t{0xD83D}, u'"'};
    EXPECT_EQ(withStoredValues("", {{u"Path", lone}}), "[Orbisgrid]\nPath=\xEF\xBF\xBD\\\"\n");
}

TEST(StoredValue, AHexadecimalEscapeWithoutDigitsIsAZero) {
    EXPECT_EQ(storedValue("[Orbisgrid]\nPath=\\xz\n", u"Path"), (Text{u'\0', u'z'}));
}

TEST(WithStoredValues, WritesSeveralInTheirOrder) {
    EXPECT_EQ(withStoredValues("", {{u"Path", u"/a b"}, {u"Version", u"3.1.1"}, {u"EXE", u"x"}}),
              "[Orbisgrid]\nPath=/a b\nVersion=3.1.1\nEXE=x\n");
}

} // namespace

} // namespace orbisgrid
