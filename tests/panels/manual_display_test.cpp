#include "panels/manual_display.h"
#include "tests/support/table.h"

namespace orbisgrid {

namespace {

using test::Row;

class ManualDisplayTest : public testing::TestWithParam<Row> {};

TEST_P(ManualDisplayTest, PlacesThePosition) {
    const Row& row = GetParam();
    const ManualDisplay display(row.text("manual"));
    EXPECT_EQ(static_cast<double>(display.place(static_cast<std::size_t>(row.number("position")))),
              row.number("place"));
}

INSTANTIATE_TEST_SUITE_P(Rows, ManualDisplayTest,
                         testing::ValuesIn(test::readTable("manual_display.tsv")), test::testName);

/// Whether every character of the manual stands where `place` says.
void expectEachInItsPlace(const Text& manual) {
    const ManualDisplay display(manual);
    for (std::size_t position = 1; position <= manual.size(); ++position) {
        const char16_t character = manual[position - 1];
        if (character == u'\r')
            continue;
        ASSERT_EQ(display.text().at(display.place(position)), character) << position;
    }
}

TEST(ManualDisplay, HoldsOneCharacterForEachLineEnd) {
    EXPECT_EQ(ManualDisplay(u"one\r\ntwo\r\n").text(), u"one\ntwo\n");
    EXPECT_EQ(ManualDisplay(u"").text(), u"");
}

TEST(ManualDisplay, LeavesALineOf2000CharactersWhole) {
    const Text line(2000, u'x');
    EXPECT_EQ(ManualDisplay(line + u"\r\n" + line).text(), line + u"\n" + line);
}

TEST(ManualDisplay, CutsALongerLine) {
    const Text line(2000, u'x');
    EXPECT_EQ(ManualDisplay(line + u"y\r\n").text(), line + u"\ny\n");
    EXPECT_EQ(ManualDisplay(line + line + u"y").text(), line + u"\n" + line + u"\ny");
}

TEST(ManualDisplay, KeepsTheTwoHalvesOfACharacterTogether) {
    const Text line(1999, u'x');
    EXPECT_EQ(ManualDisplay(line + u"\xD83D\xDCE1y").text(), line + u"\xD83D\xDCE1\ny");
    EXPECT_EQ(ManualDisplay(line + u"\xD800\xDC00y").text(), line + u"\xD800\xDC00\ny") << "first";
    EXPECT_EQ(ManualDisplay(line + u"\xDBFF\xDFFFy").text(), line + u"\xDBFF\xDFFF\ny") << "last";
}

TEST(ManualDisplay, WhatComesBehindTheSurrogatesIsNoHalf) {
    const Text line(2000, u'x');
    EXPECT_EQ(ManualDisplay(line + u"\xE000y").text(), line + u"\n\xE000y");
}

TEST(ManualDisplay, PlacesEachCharacterOfLongLines) {
    Text manual;
    for (std::size_t length : {0U, 1U, 1999U, 2000U, 2001U, 4000U, 4001U, 9000U}) {
        for (std::size_t i = 0; i < length; ++i)
            manual += static_cast<char16_t>(u'!' + i % 89);
        manual += u"\r\n";
    }
    expectEachInItsPlace(manual);
}

} // namespace

} // namespace orbisgrid
