#include "settings/locator_list_ini.h"
#include "tests/support/ini_text.h"
#include "tests/support/table.h"

#include <algorithm>
#include <cstdlib>
#include <string>

namespace orbisgrid {

namespace {

using namespace std::string_literals;
using test::IniText;
using test::numberedLines;
using test::Row;

// Numbers ---------------------------------------------------------------------------------------

class IniNumberFieldTest : public testing::TestWithParam<Row> {};

TEST_P(IniNumberFieldTest, IsReadInItsType) {
    const Row& row = GetParam();
    IniText text;
    text.stayOnTop = text.noCheck = text.left = row["line"];
    text.top = " 77 ";
    const LocatorListIni ini = readLocatorListIni(text.bytes());
    EXPECT_EQ(ini.StayOnTop, row.number("16 bits"));
    EXPECT_EQ(ini.NoCheckWebUpdates, row.number("32 bits"));
    EXPECT_EQ(ini.savedLeft, row.number("32 bits"));
    EXPECT_EQ(ini.savedTop, 77) << "the value behind is read from its own line";
}

INSTANTIATE_TEST_SUITE_P(Rows, IniNumberFieldTest,
                         testing::ValuesIn(test::readTable("ini_number_fields.tsv")),
                         test::testName);

TEST(IniField, ByteOfAnotherCodePageEndsTheNumber) {
    IniText text;
    text.stayOnTop = "1\xF6";
    EXPECT_EQ(readLocatorListIni(text.bytes()).StayOnTop, 1);
}

TEST(IniField, QuotedLabelRunsOverLineEnds) {
    IniText text;
    text.noCheckLabel = "  \"[NoCheck\r\nWeb\r\nUpdates]\" behind";
    text.noCheck = " 5 ";
    text.top = " 6 ";
    const LocatorListIni ini = readLocatorListIni(text.bytes());
    EXPECT_EQ(ini.NoCheckWebUpdates, 5);
    EXPECT_EQ(ini.savedTop, 6);
}

TEST(IniField, QuotedLabelMayCloseAtTheStartOfALine) {
    IniText text;
    text.noCheckLabel = "\"\r\n\"";
    text.noCheck = " 5 ";
    EXPECT_EQ(readLocatorListIni(text.bytes()).NoCheckWebUpdates, 5);
    text.noCheckLabel = "\"\"";
    EXPECT_EQ(readLocatorListIni(text.bytes()).NoCheckWebUpdates, 5) << "nothing in quotes";
}

TEST(IniField, LabelThatEndsAtALoneLineFeed) {
    IniText text;
    text.noCheck = " 5 ";
    for (const char* label : {"\"quoted\"", " ", ""}) {
        text.noCheckLabel = label;
        std::string bytes = text.bytes();
        for (std::size_t at = 0; (at = bytes.find('\r')) != std::string::npos;)
            bytes.erase(at, 1);
        EXPECT_EQ(readLocatorListIni(bytes).NoCheckWebUpdates, 5) << label;
    }
}

TEST(IniField, QuoteThatNeverClosesTakesTheRest) {
    IniText text;
    text.noCheckLabel = "\"[NoCheckWebUpdates]";
    text.noCheck = text.top = " 5 ";
    const LocatorListIni ini = readLocatorListIni(text.bytes());
    EXPECT_EQ(ini.NoCheckWebUpdates, 0);
    EXPECT_EQ(ini.savedTop, 0);
}

TEST(IniField, QuoteInsideALabelIsACharacter) {
    IniText text;
    text.noCheckLabel = "[No\"Check";
    text.noCheck = " 5 ";
    EXPECT_EQ(readLocatorListIni(text.bytes()).NoCheckWebUpdates, 5);
}

TEST(IniField, WhatStandsBehindACommaOfALabelIsSkipped) {
    IniText text;
    text.noCheckLabel = "[NoCheckWebUpdates],9";
    text.noCheck = " 5 ";
    EXPECT_EQ(readLocatorListIni(text.bytes()).NoCheckWebUpdates, 5);
}

// Texts -----------------------------------------------------------------------------------------

TEST(IniText, DefaultsAreWholeLinesUnchanged) {
    IniText text;
    text.defaultHome = "  jo20aw, \"x\" ";
    text.defaultTarget = "fn42";
    const LocatorListIni ini = readLocatorListIni(text.bytes());
    EXPECT_EQ(ini.DefaultHome, u"  jo20aw, \"x\" ");
    EXPECT_EQ(ini.DefaultTarget, u"fn42");
}

TEST(IniText, LineThatIsNoUtf8IsWindows1252) {
    IniText text;
    text.homeLines = "J\xD6\r\nJÖ\r\n";
    const std::vector<Text> both{u"JÖ", u"JÖ"};
    EXPECT_EQ(readLocatorListIni(text.bytes()).homeList, both);
}

TEST(IniText, TitleNoteKeepsItsBytes) {
    IniText text;
    text.titleNote = "\xFF\x80 \"a\", \0b\rc\t "s;
    EXPECT_EQ(readLocatorListIni(text.bytes()).TitleNote, text.titleNote);
}

TEST(IniText, LabelsAreNotLookedAt) {
    std::string bytes = IniText().bytes();
    for (const std::string_view label : {"[Default home]", "[Home data]", "[Target data]"})
        bytes.replace(bytes.find(label), label.size(), "something else");
    bytes.insert(bytes.find("[**end**]"), "JO20AW\r\n");
    EXPECT_EQ(readLocatorListIni(bytes).homeList, std::vector<Text>{u"JO20AW"});
}

// Lists -----------------------------------------------------------------------------------------

class IniListTest : public testing::TestWithParam<Row> {};

std::string joined(const std::vector<Text>& entries) {
    std::string all;
    for (const Text& entry : entries) {
        if (&entry != &entries.front())
            all += '|';
        all += toUtf8(entry);
    }
    return all;
}

TEST_P(IniListTest, IsReadAndSaved) {
    const Row& row = GetParam();
    IniText text;
    text.homeLines = row["lines"];
    LocatorListIni ini = readLocatorListIni(text.bytes());
    EXPECT_EQ(ini.homeList.size(), row.number("count"));
    EXPECT_EQ(joined(ini.homeList), row["entries"]);
    EXPECT_EQ(joined(readLocatorListIni(writeLocatorListIni(ini, {})).homeList),
              row["entries after a save"]);
}

/// The same lines in the place of the other list; a terminator among them ends it as well.
TEST_P(IniListTest, IsReadAsTargetListToo) {
    const Row& row = GetParam();
    IniText text;
    text.targetLines = row["lines"];
    const LocatorListIni ini = readLocatorListIni(text.bytes());
    EXPECT_EQ(joined(ini.targetList), row["entries"]);
    EXPECT_TRUE(ini.homeList.empty());
}

INSTANTIATE_TEST_SUITE_P(Rows, IniListTest,
                         testing::ValuesIn(test::readTable("ini_list_lines.tsv")), test::testName);

class IniListLengthTest : public testing::TestWithParam<std::size_t> {};

TEST_P(IniListLengthTest, KeepsAtMost41) {
    const std::size_t count = GetParam();
    IniText text;
    text.homeLines = numberedLines(count);
    text.targetLines = numberedLines(count);
    text.noCheck = " 3 ";
    const LocatorListIni ini = readLocatorListIni(text.bytes());
    const std::size_t kept = std::min<std::size_t>(count, 41);
    EXPECT_EQ(ini.homeList.size(), kept);
    EXPECT_EQ(ini.targetList, ini.homeList);
    for (std::size_t i = 0; i < kept; ++i)
        EXPECT_EQ(toUtf8(ini.homeList[i]).substr(1), std::to_string(i + 1));
    EXPECT_EQ(ini.NoCheckWebUpdates, 3) << "the entries behind the 41st are passed over";
}

// 40000 is more than a 16-bit counter of entries could hold.
INSTANTIATE_TEST_SUITE_P(Lengths, IniListLengthTest,
                         testing::Values(0, 1, 2, 30, 31, 35, 40, 41, 42, 45, 40000));

TEST(IniList, TerminatorInThePlaceOfTheLabelEndsTheList) {
    std::string bytes = IniText().bytes();
    bytes.replace(bytes.find("[Home data]\r\n"), 13, "");
    bytes.replace(bytes.find("[Target data]"), 13, "[Target data]\r\nFN42AA");
    const LocatorListIni ini = readLocatorListIni(bytes);
    EXPECT_TRUE(ini.homeList.empty());
    EXPECT_EQ(ini.targetList, std::vector<Text>{u"FN42AA"});
}

TEST(IniList, WithoutItsTerminatorHomeTakesTheRest) {
    IniText text;
    text.homeLines = numberedLines(2);
    text.homeEnd.clear();
    std::string bytes = text.bytes();
    bytes.replace(bytes.find("[**end**]\r\n"), 11, "");
    const LocatorListIni ini = readLocatorListIni(bytes);
    const std::vector<Text> expected{u"L1",
                                     u"L2",
                                     u"[Target data]",
                                     u"[NoCheckWebUpdates]",
                                     u" 0 ",
                                     u"[RememberPosition]",
                                     u" 0 ",
                                     u"[Left]",
                                     u" 0 ",
                                     u"[Top]",
                                     u" 0 "};
    EXPECT_EQ(ini.homeList, expected);
    EXPECT_TRUE(ini.targetList.empty());
}

/// Then the Target list's terminator ends the Home list, and the switches are taken for targets.
TEST(IniList, WithoutItsTerminatorHomeEndsAtTheNext) {
    IniText text;
    text.homeLines = "JO20AW\r\n";
    text.homeEnd.clear();
    text.targetLines = "FN42AA\r\n";
    const LocatorListIni ini = readLocatorListIni(text.bytes());
    const std::vector<Text> home{u"JO20AW", u"[Target data]", u"FN42AA"};
    EXPECT_EQ(ini.homeList, home);
    EXPECT_EQ(ini.targetList.size(), 7U);
}

// A file that was cut ---------------------------------------------------------------------------

/// What the first `length` bytes of each line mean, worked out from the lines of the whole file.
class CutFile {
public:
    CutFile(const std::vector<std::string>& lines, std::size_t length) {
        for (const std::string& line : lines) {
            if (length == 0)
                break;
            m_lines.push_back(line.substr(0, length));
            length -= std::min(length, line.size() + 2);
        }
    }

    std::string line(std::size_t number) const {
        return number <= m_lines.size() ? m_lines[number - 1] : std::string();
    }

    double number(std::size_t lineNumber) const {
        return std::strtod(line(lineNumber).c_str(), nullptr);
    }

    std::vector<Text> entries(std::size_t first, std::size_t end) const {
        std::vector<Text> found;
        for (std::size_t i = first; i <= end; ++i) {
            if (!line(i).empty() && line(i) != "[**end**]")
                found.push_back(fromUtf8(line(i)));
        }
        return found;
    }

private:
    std::vector<std::string> m_lines;
};

TEST(IniCut, EveryPrefixReadsAsFarAsItGoes) {
    const std::vector<std::string> lines{";Orbisgrid",
                                         ";  station",
                                         "[Default home]",
                                         "JO20AW",
                                         "[Default Target]",
                                         "FN42AA",
                                         "[StayonTop]",
                                         " 1 ",
                                         "[Home data]",
                                         "JO20AW",
                                         "KP20LE",
                                         "[**end**]",
                                         "[Target data]",
                                         "FN42AA",
                                         "[**end**]",
                                         "[NoCheckWebUpdates]",
                                         " 12 ",
                                         "[RememberPosition]",
                                         " 1 ",
                                         "[Left]",
                                         " 1440 ",
                                         "[Top]",
                                         "-60 "};
    std::string bytes;
    for (const std::string& line : lines)
        bytes += line + "\r\n";
    for (std::size_t length = 0; length <= bytes.size(); ++length) {
        SCOPED_TRACE(length);
        const LocatorListIni ini = readLocatorListIni(std::string_view(bytes).substr(0, length));
        const CutFile cut(lines, length);
        EXPECT_EQ(ini.TitleNote, cut.line(2));
        EXPECT_EQ(toUtf8(ini.DefaultHome), cut.line(4));
        EXPECT_EQ(toUtf8(ini.DefaultTarget), cut.line(6));
        EXPECT_EQ(ini.StayOnTop, cut.number(8));
        EXPECT_EQ(ini.homeList, cut.entries(10, 12));
        EXPECT_EQ(ini.targetList, cut.entries(14, 15));
        EXPECT_EQ(ini.NoCheckWebUpdates, cut.number(17));
        EXPECT_EQ(ini.RememberPosition, cut.number(19));
        EXPECT_EQ(ini.savedLeft, cut.number(21));
        EXPECT_EQ(ini.savedTop, cut.number(23));
    }
}

TEST(IniCut, EmptyFileIsTheInitialValue) {
    const LocatorListIni ini = readLocatorListIni("");
    EXPECT_TRUE(ini.TitleNote.empty());
    EXPECT_TRUE(ini.homeList.empty());
    EXPECT_EQ(ini.StayOnTop, 0);
}

// What start-up makes of it ---------------------------------------------------------------------

TEST(IniStart, PositionOfZeroOrLessStays) {
    LocatorListIni ini;
    ini.RememberPosition = 1;
    ini.savedLeft = 0;
    ini.savedTop = 720;
    EXPECT_FALSE(restoredPosition(ini).left);
    EXPECT_EQ(restoredPosition(ini).top, 720);
    ini.savedLeft = 1;
    EXPECT_EQ(restoredPosition(ini).left, 1);
    ini.savedLeft = 15;
    ini.savedTop = -30000;
    EXPECT_EQ(restoredPosition(ini).left, 15);
    EXPECT_FALSE(restoredPosition(ini).top);
}

TEST(IniStart, PositionIsRestoredOnlyWhereAskedFor) {
    LocatorListIni ini;
    ini.savedLeft = ini.savedTop = 720;
    EXPECT_FALSE(restoredPosition(ini).left);
    EXPECT_FALSE(restoredPosition(ini).top);
    ini.RememberPosition = -1; // every number but 0 asks for it
    EXPECT_EQ(restoredPosition(ini).left, 720);
}

TEST(IniStart, OnlyOneSetsStayOnTop) {
    for (const std::int16_t value : std::initializer_list<std::int16_t>{-1, 0, 2, 256}) {
        LocatorListIni ini;
        ini.StayOnTop = value;
        EXPECT_FALSE(opensOnTop(ini)) << value;
    }
    IniText text;
    text.stayOnTop = " 1 ";
    EXPECT_TRUE(opensOnTop(readLocatorListIni(text.bytes())));
}

} // namespace

} // namespace orbisgrid
