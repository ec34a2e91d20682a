#include "core/text.h"
#include "tests/support/runtime_error_code.h"
#include "tests/support/table.h"

#include <array>
#include <cstdint>
#include <iconv.h>
#include <locale.h>
#include <wctype.h>

namespace orbisgrid {

namespace {

using test::Row;

class UpperCaseTest : public testing::TestWithParam<Row> {};

TEST_P(UpperCaseTest, NeverChangesALength) {
    const Row& row = GetParam();
    const Text upper = upperCase(row.text("text"));
    EXPECT_EQ(toUtf8(upper), row["upper case"]);
    EXPECT_EQ(upper.size(), row.text("text").size());
}

INSTANTIATE_TEST_SUITE_P(Rows, UpperCaseTest, testing::ValuesIn(test::readTable("text_upper.tsv")),
                         test::testName);

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

// Whole tables against the C library ------------------------------------------------------------

TEST(FileBytes, EveryByteOfWindows1252) {
    const iconv_t converter = ::iconv_open("UTF-16LE", "WINDOWS-1252");
    ASSERT_NE(converter, reinterpret_cast<iconv_t>(-1));
    for (unsigned code = 0x80; code <= 0xFF; ++code) {
        std::array<char, 1> byte{static_cast<char>(code)};
        std::array<char, 2> unit{};
        char* from = byte.data();
        char* to = unit.data();
        std::size_t fromLeft = byte.size(), toLeft = unit.size();
        // The five that the code page leaves open keep their code.
        const bool isOpen = ::iconv(converter, &from, &fromLeft, &to, &toLeft) != 0;
        const unsigned expected =
            isOpen ? code
                   : static_cast<std::uint8_t>(unit[0]) |
                         static_cast<unsigned>(static_cast<std::uint8_t>(unit[1])) << 8U;
        const Text text = fromFileBytes({byte.data(), 1});
        ASSERT_EQ(text.size(), 1U) << code;
        EXPECT_EQ(static_cast<unsigned>(text[0]), expected) << code;
    }
    ::iconv_close(converter);
}

/// The alphabets that upperCase covers, less what would become a letter of ASCII or of another
/// alphabet.
bool isCovered(unsigned code) {
    const bool isLatin = code < 0x180 && code != 0xB5 && code != 0x131 && code != 0x17F;
    const bool isGreek = code >= 0x3AC && code <= 0x3CE;
    return isLatin || isGreek || (code >= 0x430 && code <= 0x45F);
}

TEST(UpperCase, EveryCodeUnit) {
    const locale_t locale = ::newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    ASSERT_NE(locale, nullptr);
    for (unsigned code = 0; code <= 0xFFFF; ++code) {
        const unsigned expected = isCovered(code) ? ::towupper_l(code, locale) : code;
        ASSERT_EQ(static_cast<unsigned>(upperCase(static_cast<char16_t>(code))), expected) << code;
    }
    ::freelocale(locale);
}

TEST(Utf8, WhatOnlyLooksLikeASequence) {
    const Text bad(1, 0xFFFD);
    EXPECT_EQ(fromUtf8("\x84\x80\x80\x80"), bad + bad + bad + bad) << "no leading byte";
    EXPECT_EQ(fromUtf8("\xED\xBF\xBF"), bad + bad + bad) << "the last surrogate";
    EXPECT_EQ(fromUtf8(std::string_view("\xC3\xA9", 1)), bad) << "what follows is not the text's";
}

} // namespace

} // namespace orbisgrid
