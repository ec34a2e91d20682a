#include "batch/message_text.h"

#include <gtest/gtest.h>

namespace orbisgrid {

namespace {

TEST(Printable, HasAQuestionMarkForEachControlCharacter) {
    EXPECT_EQ(printable(std::string_view("a\0b\tc\x1F\x7F~", 8)), "a?b?c??~");
    EXPECT_EQ(printable("a\xC2\x80z\xC2\x9F"), "a?z?");
}

TEST(Printable, LeavesWhatOnlyBeginsAsOne) {
    EXPECT_EQ(printable("\xC2\xA0 50\xC2\xB0\xC2"), "\xC2\xA0 50\xC2\xB0\xC2");
}

TEST(Shortened, LeavesSixtyBytes) {
    EXPECT_EQ(shortened(std::string(60, 'a')), std::string(60, 'a'));
    EXPECT_EQ(shortened(std::string(61, 'a')), std::string(60, 'a') + "...");
}

TEST(Shortened, CutsNoCharacterInTwo) {
    for (const char* character : {"\u00E4", "\u00E9", "\u2032", "\U0001F4FB"}) {
        for (std::size_t before = 57; before <= 60; ++before) {
            const std::string text = std::string(before, 'a') + character + "bbbb";
            const bool fits = before + std::string(character).size() <= 60;
            const std::string cut = shortened(text);
            EXPECT_TRUE(cut.starts_with(fits ? std::string(before, 'a') + character
                                             : std::string(before, 'a') + "..."))
                << before << character;
        }
    }
}

} // namespace

} // namespace orbisgrid
