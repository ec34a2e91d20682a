#include "geodesy/locator_check.h"
#include "tests/support/table.h"

namespace orbisgrid {

namespace {

using test::Row;

std::string shown(const std::optional<Text>& locator) {
    return locator ? toUtf8(*locator) : "-";
}

class LocatorCheckTest : public testing::TestWithParam<Row> {};

TEST_P(LocatorCheckTest, NormalisesOrRefuses) {
    const Row& row = GetParam();
    EXPECT_EQ(shown(checkedHome(row.text("locator"))), row["home"]);
    EXPECT_EQ(shown(checkedTarget(row.text("locator"))), row["target"]);
}

INSTANTIATE_TEST_SUITE_P(Rows, LocatorCheckTest,
                         testing::ValuesIn(test::readTable("locator_check.tsv")), test::testName);

TEST(LocatorLength, IsFourToSix) {
    EXPECT_FALSE(hasAcceptedLength(u""));
    EXPECT_FALSE(hasAcceptedLength(u"JO2"));
    EXPECT_TRUE(hasAcceptedLength(u"JO20"));
    EXPECT_TRUE(hasAcceptedLength(u"JO20A"));
    EXPECT_TRUE(hasAcceptedLength(u"JO20AW"));
    EXPECT_FALSE(hasAcceptedLength(u"JO20AW5"));
}

TEST(CompletedLocator, CompletesShortOnesInUpperCase) {
    EXPECT_EQ(completedLocator(u"jo20"), u"JO20LL");
    EXPECT_EQ(completedLocator(u"jo20a"), u"JO20AL");
    EXPECT_EQ(completedLocator(u"jo20aw"), u"jo20aw") << "six characters keep their case";
    EXPECT_EQ(completedLocator(u"jo2"), u"jo2");
}

} // namespace

} // namespace orbisgrid
