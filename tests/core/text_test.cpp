#include "core/text.h"
#include "tests/support/runtime_error_code.h"
#include "tests/support/table.h"

namespace orbisgrid {

namespace {

using test::Row;

class UpperCaseTest : public testing::TestWithParam<Row> {};

TEST_P(UpperCaseTest, NeverChangesALength) {
    const Row& row = GetParam();
    const Text upper = upperCase(row.text(0));
    EXPECT_EQ(toUtf8(upper), row.fields[1]);
    EXPECT_EQ(upper.size(), row.text(0).size());
}

INSTANTIATE_TEST_SUITE_P(Rows, UpperCaseTest,
                         testing::ValuesIn(test::readTable("text_upper.tsv", 2)), test::testName);

TEST(UpperCase, IsIdempotentAndKeepsEveryCodeUnit) {
    for (unsigned code = 0; code <= 0xFFFF; ++code) {
        const auto character = static_cast<char16_t>(code);
        const char16_t upper = upperCase(character);
        ASSERT_EQ(upperCase(upper), upper) << code;
        if (code >= 0x80) {
            ASSERT_GE(upper, 0x80) << code << " entered ASCII";
        } else {
            ASSERT_LT(upper, 0x80) << code << " left ASCII";
        }
    }
}

TEST(Trimmed, TakesBlanksAndNothingElse) {
    EXPECT_EQ(trimmed(u"  JO20 AW "), u"JO20 AW");
    EXPECT_EQ(trimmed(u"\tJO20\u00A0"), u"\tJO20\u00A0");
    EXPECT_EQ(trimmed(u"   "), u"");
    EXPECT_EQ(trimmed(u""), u"");
    EXPECT_EQ(withoutLeadingBlanks(u"  JO20 "), u"JO20 ");
}

TEST(Middle, CountsFromOneAndStopsAtTheEnd) {
    EXPECT_EQ(middle(u"JO20AW", 1, 2), u"JO");
    EXPECT_EQ(middle(u"JO20AW", 5, 9), u"AW");
    EXPECT_EQ(middle(u"JO20AW", 6, 1), u"W");
    EXPECT_EQ(middle(u"JO20AW", 7, 1), u"");
    EXPECT_EQ(middle(u"JO20AW", 0, 1), u"");
    EXPECT_EQ(middle(u"", 1, 1), u"");
}

TEST(LastCharacter, OfAnEmptyTextIsEmpty) {
    EXPECT_EQ(lastCharacter(u"50.9375N"), u"N");
    EXPECT_EQ(lastCharacter(u""), u"");
}

TEST(CharacterWithCode, TakesOneByte) {
    EXPECT_EQ(characterWithCode(65), u'A');
    EXPECT_EQ(characterWithCode(0), u'\0');
    EXPECT_EQ(characterWithCode(255), u'\u00FF');
    EXPECT_EQ(test::raisedCode([] { characterWithCode(256); }), 5);
    EXPECT_EQ(test::raisedCode([] { characterWithCode(-1); }), 5);
    EXPECT_EQ(test::raisedCode([] { characterWithCode(0.0 / 0.0); }), 5);
}

TEST(Utf8, RoundTripsEveryCodePoint) {
    for (char32_t code = 0; code <= 0x10FFFF; ++code) {
        if (code >= 0xD800 && code <= 0xDFFF)
            continue;
        Text text;
        if (code >= 0x10000) {
            text += static_cast<char16_t>(0xD800 + ((code - 0x10000) >> 10U));
            text += static_cast<char16_t>(0xDC00 + ((code - 0x10000) & 0x3FFU));
        } else {
            text += static_cast<char16_t>(code);
        }
        ASSERT_EQ(fromUtf8(toUtf8(text)), text) << static_cast<unsigned>(code);
    }
}

TEST(Utf8, BadBytesBecomeReplacements) {
    EXPECT_EQ(fromUtf8("a\xFF"), u"a\uFFFD");
    EXPECT_EQ(fromUtf8("\xC3"), u"\uFFFD");
    EXPECT_EQ(fromUtf8("\xC3("), u"\uFFFD(");
    EXPECT_EQ(fromUtf8("\xC0\x80"), u"\uFFFD\uFFFD") << "overlong";
    EXPECT_EQ(fromUtf8("\xE0\x80\x80"), u"\uFFFD\uFFFD\uFFFD") << "overlong";
    EXPECT_EQ(fromUtf8("\xED\xA0\x80"), u"\uFFFD\uFFFD\uFFFD") << "surrogate";
    EXPECT_EQ(fromUtf8("\xF4\x90\x80\x80"), u"\uFFFD\uFFFD\uFFFD\uFFFD") << "beyond Unicode";
    EXPECT_EQ(toUtf8(Text{0xD800}), "\xEF\xBF\xBD");
    EXPECT_EQ(toUtf8(Text{0xDC00, u'a'}), "\xEF\xBF\xBD"
                                          "a");
    EXPECT_EQ(toUtf8(Text{0xD800, u'a'}), "\xEF\xBF\xBD"
                                          "a");
}

TEST(FileBytes, AreUtf8OrElseWindows1252) {
    EXPECT_EQ(fromFileBytes("caf\xC3\xA9"), u"café");
    EXPECT_EQ(fromFileBytes("caf\xE9"), u"café");
    EXPECT_EQ(fromFileBytes("\x80 \x92 \xFF"), u"€ ’ ÿ");
    EXPECT_EQ(fromFileBytes("\x81\xE9"), u"\u0081é");
    EXPECT_EQ(fromFileBytes(""), u"");
}

TEST(ToUtf8, SurrogateWithoutItsPartner) {
    const std::string replacement = "\xEF\xBF\xBD";
    const Text first(1, 0xD800), low(1, 0xDC00), lastLow(1, 0xDFFF), behind(1, 0xE000);
    const Text lastHigh(1, 0xDBFF), before(1, 0xD7FF);
    EXPECT_EQ(toUtf8(first + low), "\xF0\x90\x80\x80");
    EXPECT_EQ(toUtf8(lastHigh + lastLow), "\xF4\x8F\xBF\xBF");
    EXPECT_EQ(toUtf8(first + behind), replacement + "\xEE\x80\x80");
    EXPECT_EQ(toUtf8(first + before), replacement + "\xED\x9F\xBF");
    EXPECT_EQ(toUtf8(first), replacement);
    EXPECT_EQ(toUtf8(lastHigh), replacement);
    EXPECT_EQ(toUtf8(low), replacement);
    EXPECT_EQ(toUtf8(lastLow + first), replacement + replacement);
    EXPECT_EQ(toUtf8(low + low), replacement + replacement);
}

} // namespace

} // namespace orbisgrid
