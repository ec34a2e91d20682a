#include "batch/position_text.h"
#include "core/long_maidenhead.h"
#include "core/number_text.h"
#include "tests/support/table.h"

#include <cmath>

namespace orbisgrid {

namespace {

using test::Row;

std::string_view refusalOf(const std::string& word) {
    if (word == "none")
        return "No position!";
    if (word == "outside")
        return "Outside the world!";
    return word == "both" ? "Decimal degrees, or degrees and minutes?" : "";
}

void expectPosition(const Row& row, const PositionReading& reading) {
    const std::string_view refusal = refusalOf(row["latitude"]);
    EXPECT_EQ(reading.refusal, refusal);
    ASSERT_EQ(reading.position.has_value(), refusal.empty());
    if (reading.position) {
        EXPECT_NEAR(reading.position->position.latitude, row.number("latitude"), 1e-13);
        EXPECT_NEAR(reading.position->position.longitude, row.number("longitude"), 1e-13);
    }
}

class PositionTextTest : public testing::TestWithParam<Row> {};

TEST_P(PositionTextTest, IsReadWhicheverItIs) {
    expectPosition(GetParam(), readPosition(GetParam()["text"], Notation::automatic));
}

TEST_P(PositionTextTest, IsReadInItsNotationAndInNoOther) {
    const Row& row = GetParam();
    if (row["notation"] == "-")
        return;
    for (const char* name : {"locator", "decimal", "dms", "uiview"}) {
        const PositionReading reading = readPosition(row["text"], *notationNamed(name));
        if (row["notation"] == name)
            expectPosition(row, reading);
        else
            EXPECT_FALSE(reading.position) << name;
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, PositionTextTest,
                         testing::ValuesIn(test::readTable("position_text.tsv")), test::testName);

TEST(PositionText, OfTwoReadingsTheNotationDecides) {
    const auto decimal = readPosition("50,56 4,2", Notation::decimal);
    ASSERT_TRUE(decimal.position);
    EXPECT_EQ(decimal.position->position, (Position{50.56, 4.2}));
    const auto dms = readPosition("50,56 4,2", Notation::dms);
    ASSERT_TRUE(dms.position);
    EXPECT_NEAR(dms.position->position.latitude, 50 + 56 / 60.0, 1e-13);
}

TEST(PositionText, MayBeOfAnotherCodePage) {
    const auto reading = readPosition("50\xB0"
                                      "56'N 4\xB0"
                                      "2'E",
                                      Notation::automatic);
    ASSERT_TRUE(reading.position);
    EXPECT_NEAR(reading.position->position.longitude, 4 + 2 / 60.0, 1e-13);
}

TEST(PositionText, ZeroIsNeverNegative) {
    for (const char* text : {"-0 -0", "0S 0W", "0\xC2\xB0 0'S 0\xC2\xB0 0'W"}) {
        const auto reading = readPosition(text, Notation::automatic);
        ASSERT_TRUE(reading.position) << text;
        EXPECT_FALSE(std::signbit(reading.position->position.latitude)) << text;
        EXPECT_FALSE(std::signbit(reading.position->position.longitude)) << text;
    }
}

TEST(NotationNamed, KnowsFive) {
    EXPECT_EQ(notationNamed("auto"), Notation::automatic);
    EXPECT_EQ(notationNamed("uiview"), Notation::uiview);
    EXPECT_EQ(notationNamed("UIVIEW"), std::nullopt);
    EXPECT_EQ(notationNamed(""), std::nullopt);
}

class LocatorRowTest : public testing::TestWithParam<Row> {};

TEST_P(LocatorRowTest, DecodesAsTheConverterDoes) {
    const Row& row = GetParam();
    const auto reading = readPosition(row["locator"], Notation::locator);
    if (!reading.position) {
        // More than the grid has, small letters that the converter makes capitals, too many.
        EXPECT_TRUE(row["LonText"] == "-" || row["locator"].starts_with("ZZ") ||
                    row["locator"].size() > 10);
        return;
    }
    const Position position = reading.position->position;
    EXPECT_TRUE(reading.position->isSingle);
    Text capitals = upperCase(row.text("locator"));
    const auto converter = LongMaiden2Coordinates(capitals);
    ASSERT_TRUE(converter);
    EXPECT_EQ(printText(static_cast<float>(position.latitude)), converter->LatText);
    EXPECT_EQ(printText(static_cast<float>(position.longitude)), converter->LonText);
    EXPECT_EQ(reading.position->locator, capitals);
}

INSTANTIATE_TEST_SUITE_P(Rows, LocatorRowTest,
                         testing::ValuesIn(test::readTable("long_maidenhead_decode.tsv")),
                         test::testName);

} // namespace

} // namespace orbisgrid
