#include "settings/locator_list_ini.h"
#include "tests/support/ini_text.h"
#include "tests/support/table.h"

namespace orbisgrid {

namespace {

using test::IniText;
using test::numberedLines;
using test::Row;

const IniWindowState window{u"3.1.1", 1, 1440, -60};

TEST(IniWrite, WholeFile) {
    LocatorListIni ini;
    ini.TitleNote = ";  My station";
    ini.DefaultHome = u"jo20aw";
    ini.DefaultTarget = u"FN42aa";
    ini.StayOnTop = 0; // the check box counts
    ini.homeList = {u"JO20AW", u"jo21"};
    ini.targetList = {u"FN42AA"};
    ini.NoCheckWebUpdates = 1;
    ini.RememberPosition = -1;
    ini.savedLeft = 5; // the live position counts
    EXPECT_EQ(writeLocatorListIni(ini, window),
              ";Orbisgrid, by ZZ9QX (c)2002-2015 version 3.1.1\r\n"
              ";  My station\r\n"
              "[Default home]\r\n"
              "JO20AW\r\n"
              "[Default Target]\r\n"
              "FN42AA\r\n"
              "[StayonTop]\r\n"
              " 1 \r\n"
              "[Home data]\r\n"
              "JO20AW\r\n"
              "jo21\r\n"
              "[**end**]\r\n"
              "[Target data]\r\n"
              "FN42AA\r\n"
              "[**end**]\r\n"
              "[NoCheckWebUpdates]\r\n"
              " 1 \r\n"
              "[RememberPosition]\r\n"
              "-1 \r\n"
              "[Left]\r\n"
              " 1440 \r\n"
              "[Top]\r\n"
              "-60 \r\n");
    EXPECT_EQ(ini.DefaultHome, u"jo20aw") << "only the file gets it in upper case";
}

TEST(IniWrite, EmptyListIsItsLabelAndTheTerminator) {
    LocatorListIni ini;
    const std::string bytes = writeLocatorListIni(ini, window);
    EXPECT_NE(bytes.find("[Home data]\r\n[**end**]\r\n[Target data]\r\n[**end**]\r\n"),
              std::string::npos);
    EXPECT_TRUE(readLocatorListIni(bytes).homeList.empty());
}

TEST(IniWrite, NumbersAtTheEndsOfTheirTypes) {
    LocatorListIni ini;
    ini.NoCheckWebUpdates = 2147483647;
    ini.RememberPosition = -2147483647 - 1;
    const LocatorListIni again = readLocatorListIni(writeLocatorListIni(ini, window));
    EXPECT_EQ(again.NoCheckWebUpdates, 2147483647);
    EXPECT_EQ(again.RememberPosition, -2147483647 - 1);
    EXPECT_EQ(again.savedLeft, 1440);
    EXPECT_EQ(again.savedTop, -60);
}

class IniTitleNoteTest : public testing::TestWithParam<Row> {};

TEST_P(IniTitleNoteTest, IsShownAndSaved) {
    const Row& row = GetParam();
    IniText text;
    text.titleNote = row["line 2"];
    const LocatorListIni ini = readLocatorListIni(text.bytes());
    const std::optional<Text> note = captionNote(ini.TitleNote);
    EXPECT_EQ(note ? toUtf8(*note) : "none", row["caption"]);
    const std::string bytes = writeLocatorListIni(ini, window);
    EXPECT_EQ(savedTitleNote(ini.TitleNote), row["saved as"]);
    EXPECT_EQ(readLocatorListIni(bytes).TitleNote, row["saved as"]);
}

INSTANTIATE_TEST_SUITE_P(Rows, IniTitleNoteTest,
                         testing::ValuesIn(test::readTable("ini_title_note.tsv")), test::testName);

TEST(IniTitleNote, BytesGoThroughWhateverTheirEncoding) {
    std::string note(";\0\xC3\x28\xFF\r ", 7);
    note += std::string(200, '\xE9');
    IniText text;
    text.titleNote = note;
    LocatorListIni ini = readLocatorListIni(text.bytes());
    EXPECT_NE(writeLocatorListIni(ini, window).find("\r\n" + note + "\r\n[Default home]"),
              std::string::npos);
}

TEST(IniTitleNote, Windows1252ShowsItsLetters) {
    EXPECT_EQ(captionNote("; \xD6"), u" Ö");
}

class IniWrittenListTest : public testing::TestWithParam<std::size_t> {};

TEST_P(IniWrittenListTest, HoldsTheFirst30) {
    IniText text;
    text.homeLines = numberedLines(GetParam());
    text.targetLines = text.homeLines;
    LocatorListIni ini = readLocatorListIni(text.bytes());
    const std::string written = numberedLines(std::min<std::size_t>(GetParam(), 30));
    const std::string bytes = writeLocatorListIni(ini, window);
    EXPECT_NE(bytes.find("[Home data]\r\n" + written + "[**end**]\r\n[Target data]\r\n" + written +
                         "[**end**]\r\n[NoCheckWebUpdates]"),
              std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(Lengths, IniWrittenListTest,
                         testing::Values(0, 1, 29, 30, 31, 35, 41, 45));

TEST(IniWrittenList, BlankEntriesCountAmongThe30) {
    LocatorListIni ini;
    ini.homeList.assign(29, u"   ");
    ini.homeList.emplace_back(u"the 30th");
    ini.homeList.emplace_back(u"the 31st");
    const LocatorListIni again = readLocatorListIni(writeLocatorListIni(ini, window));
    EXPECT_EQ(again.homeList, std::vector<Text>{u"the 30th"});
}

TEST(IniRoundTrip, SecondSaveChangesNothing) {
    IniText text;
    text.titleNote = ";  Ж station";
    text.defaultHome = "jo20aw";
    text.homeLines = "  \r\n\r\nJ\xD6\r\n" + numberedLines(45);
    text.noCheck = "1.5,x";
    text.left = "15";
    LocatorListIni first = readLocatorListIni(text.bytes());
    const std::string once = writeLocatorListIni(first, window);
    LocatorListIni second = readLocatorListIni(once);
    EXPECT_EQ(writeLocatorListIni(second, window), once);
    EXPECT_EQ(second.homeList.size(), 29U) << "30 less the blank one";
    EXPECT_EQ(second.homeList.front(), u"JÖ");
    EXPECT_EQ(second.NoCheckWebUpdates, 2);
    EXPECT_EQ(second.DefaultHome, u"JO20AW");
}

TEST(IniRoundTrip, LoneLineFeedsBecomeCrLf) {
    IniText text;
    text.homeLines = numberedLines(2);
    std::string unixEnds = text.bytes();
    std::erase(unixEnds, '\r');
    LocatorListIni ini = readLocatorListIni(unixEnds);
    EXPECT_EQ(writeLocatorListIni(ini, {u"3.1.1", 0, 0, 0}), text.bytes());
}

} // namespace

} // namespace orbisgrid
