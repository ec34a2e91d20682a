#include "panels/home_target.h"
#include "panels/locator_converter_form.h"
#include "tests/support/panel_actions.h"

namespace orbisgrid {

namespace {

using test::RecordedMessages;
using test::Row;

class CalculateTest : public testing::TestWithParam<Row> {};

TEST_P(CalculateTest, FillsTheLabelsOrRefuses) {
    const Row& row = GetParam();
    HomeTarget panel;
    FormTexts texts;
    RecordedMessages messages;
    panel.txtHome.set(row.text("home"));
    panel.txtTarget.set(row.text("target"));
    const CalculateEnd end = panel.calculate(texts, messages);
    EXPECT_EQ(toUtf8(panel.txtHome.text()), row["home after"]);
    EXPECT_EQ(toUtf8(panel.txtTarget.text()), row["target after"]);
    if (row["message"].empty()) {
        EXPECT_EQ(end, CalculateEnd::calculated);
        EXPECT_TRUE(messages.shown.empty());
        EXPECT_EQ(toUtf8(panel.lblDistKm), row["km"]);
        EXPECT_EQ(toUtf8(panel.lblDistMile), row["miles"]);
        EXPECT_EQ(toUtf8(panel.lblAzimuth), row["azimuth"]);
        EXPECT_EQ(toUtf8(panel.lblHomeLat), row["home lat"]);
        EXPECT_EQ(toUtf8(panel.lblHomeLong), row["home long"]);
        EXPECT_EQ(toUtf8(panel.lblTargetLat), row["target lat"]);
        EXPECT_EQ(toUtf8(panel.lblTargetLong), row["target long"]);
    } else {
        EXPECT_NE(end, CalculateEnd::calculated);
        EXPECT_EQ(test::described(messages.shown), test::described({*test::expectedMessage(row)}));
        EXPECT_EQ(panel.lblDistKm, u"0 Km");
        EXPECT_TRUE(panel.cmbHome.items.empty());
        EXPECT_TRUE(panel.cmbTarget.items.empty());
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, CalculateTest, testing::ValuesIn(test::readTable("calculate.tsv")),
                         test::testName);

struct Refusal {
    CalculateEnd end;
    Message message;
};

Refusal refusalOf(TextView home, TextView target) {
    HomeTarget panel;
    FormTexts texts;
    RecordedMessages messages;
    panel.txtHome.set(home);
    panel.txtTarget.set(target);
    const CalculateEnd end = panel.calculate(texts, messages);
    return {end, messages.shown.at(0)};
}

TEST(CalculateMessages, HaveTheirTextsAndFocus) {
    const Refusal home = refusalOf(u"JO2", u"JO20");
    EXPECT_EQ(home.end, CalculateEnd::refusedHome);
    EXPECT_EQ(home.message.text,
              u"Invallid Home Locator!\r\nA locator must exist out of at least 4 characters and no "
              u"more then six. Examples: JO20, JO20AW");
    const Refusal target = refusalOf(u"JO20", u"JO2");
    EXPECT_EQ(target.end, CalculateEnd::refusedTarget);
    EXPECT_EQ(target.message.text,
              u"Invallid Target Locator!\r\nA locator must exist out of at least 4 characters and "
              u"no more then six. Examples: JO20, JO20AW");
    const Refusal format = refusalOf(u"JO2A", u"JO20");
    EXPECT_EQ(format.end, CalculateEnd::refused);
    EXPECT_EQ(format.message.text, u"Invalid locator!");
}

HomeTarget calculated(TextView home, TextView target) {
    HomeTarget panel;
    FormTexts texts;
    RecordedMessages messages;
    panel.txtHome.set(home);
    panel.txtTarget.set(target);
    panel.calculate(texts, messages);
    panel.calculate(texts, messages);
    return panel;
}

TEST(Sides, AreTwoAndCountFromHome) {
    EXPECT_EQ(static_cast<std::size_t>(Side::Home), 0U);
    EXPECT_EQ(static_cast<std::size_t>(Side::Target), 1U);
    EXPECT_EQ(bothSides.size(), 2U);
}

TEST(CalculateLists, RememberEachLocatorOnce) {
    const HomeTarget panel = calculated(u"JO20", u"FN42");
    EXPECT_EQ(panel.cmbHome.items, std::vector<Text>{u"JO20LL"});
    EXPECT_EQ(panel.cmbTarget.items, std::vector<Text>{u"FN42LL"});
    EXPECT_EQ(panel.cmbHome.ListIndex, LocatorList::nothingSelected);
}

TEST(CalculateLists, RememberALowerCaseLocatorEachTime) {
    const HomeTarget panel = calculated(u"jo20aw", u"FN42AA");
    EXPECT_EQ(panel.cmbHome.items, (std::vector<Text>{u"JO20AW", u"JO20AW"}));
}

TEST(CalculateLists, KnowNoLimit) {
    HomeTarget panel;
    FormTexts texts;
    RecordedMessages messages;
    panel.txtTarget.set(u"JO20AW");
    for (char16_t letter = u'A'; letter <= u'X'; ++letter) {
        panel.txtHome.set(Text(u"JO20A") + letter);
        panel.calculate(texts, messages);
        panel.txtHome.set(Text(u"JO20B") + letter);
        panel.calculate(texts, messages);
    }
    EXPECT_EQ(panel.cmbHome.items.size(), 48U);
}

TEST(CalculateWhole, PutsTheTargetIntoTheConverter) {
    LocatorConverterForm form;
    RecordedMessages messages;
    form.homeTarget.txtHome.set(u"JO20AW");
    form.homeTarget.txtTarget.set(u"fn42aa");
    EXPECT_EQ(form.calculate(messages), CalculateEnd::calculated);
    EXPECT_EQ(form.converter.txtLocator.text(), u"FN42AA");
    EXPECT_EQ(form.converter.txtUIView.text(), u"=4201.15N/07157.30W");
    EXPECT_EQ(form.texts.LonText, u"-71.95833W") << "the Target's, as the converter decoded it";
}

TEST(CalculateWhole, LeavesTheTextsThatAMalformedLocatorShows) {
    LocatorConverterForm form;
    RecordedMessages messages;
    form.homeTarget.txtHome.set(u"JO20AW");
    form.homeTarget.txtTarget.set(u"FN42AA");
    form.calculate(messages);
    form.converter.txtLocator.set(u"!!!!");
    form.convertLocator(messages);
    EXPECT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(form.converter.txtDecLat.text(), u"42.02083");
    EXPECT_EQ(form.converter.txtDecLong.text(), u"-71.95833");
}

TEST(CalculateWhole, LeavesTheConverterAloneOnARefusal) {
    LocatorConverterForm form;
    RecordedMessages messages;
    form.homeTarget.txtHome.set(u"JO20AW");
    EXPECT_EQ(form.calculate(messages), CalculateEnd::refusedTarget);
    EXPECT_EQ(form.converter.txtLocator.text(), u"");
}

TEST(HomeTargetReport, HasNineLinesAndNoLastLineEnd) {
    HomeTarget panel = calculated(u"JO20AW", u"FN42AA");
    panel.txtHome.set(u"jo20aw");
    EXPECT_EQ(panel.report(), u"Home locator  :JO20AW\r\n"
                              u"Target Locator:FN42AA\r\n"
                              u"Distance:5637 Km\r\n"
                              u"        :3520 Miles\r\n"
                              u"Azimuth :291 degrees\r\n"
                              u"Home>   Latitude :50.9375N°\r\n"
                              u"Home>   Longitude:4.041667E°\r\n"
                              u"Target> Latitude :42.02083N°\r\n"
                              u"Target> Longitude:-71.95834W°");
}

TEST(HomeTargetLists, ChooseClearAndRemove) {
    HomeTarget panel;
    panel.cmbHome.items = {u"JO20AW", u"FN42AA"};
    panel.choose(Side::Home, 1);
    EXPECT_EQ(panel.txtHome.text(), u"FN42AA");
    panel.choose(Side::Home, 2);
    EXPECT_EQ(panel.cmbHome.ListIndex, 1) << "no such item: nothing happens";
    panel.removeSelected(Side::Home);
    EXPECT_EQ(panel.cmbHome.items, std::vector<Text>{u"JO20AW"});
    EXPECT_EQ(panel.txtHome.text(), u"");
    panel.txtHome.set(u"JN");
    panel.removeSelected(Side::Home);
    EXPECT_EQ(panel.txtHome.text(), u"JN") << "nothing selected: nothing happens";
    panel.txtTarget.set(u"KO");
    panel.clear(Side::Home);
    EXPECT_TRUE(panel.cmbHome.items.empty());
    EXPECT_EQ(panel.txtHome.text(), u"");
    EXPECT_EQ(panel.txtTarget.text(), u"KO");
}

TEST(HomeTargetLists, ChoosingALongItemIsCutByTheBox) {
    HomeTarget panel;
    panel.cmbTarget.items = {u"JO20AW55AA"};
    panel.choose(Side::Target, 0);
    EXPECT_EQ(panel.txtTarget.text(), u"JO20AW");
}

TEST(HomeTargetDefault, TakesTheListBeforeTheBox) {
    HomeTarget panel;
    panel.txtHome.set(u" jo20a");
    panel.makeDefault(Side::Home);
    EXPECT_EQ(panel.DefaultHome, u"JO20A");
    panel.cmbHome.items = {u" fn42 ", u"jo2"};
    panel.cmbHome.select(0);
    panel.makeDefault(Side::Home);
    EXPECT_EQ(panel.DefaultHome, u"FN42");
    panel.cmbHome.select(1);
    panel.makeDefault(Side::Home);
    EXPECT_EQ(panel.DefaultHome, u"JO20A") << "an item of 3 characters is too short";
    panel.makeDefault(Side::Target);
    EXPECT_EQ(panel.DefaultTarget, u"");
}

TEST(HomeTargetQuestion, NamesItsList) {
    EXPECT_EQ(clearQuestion(Side::Home).text,
              u"Do you want to clear the contents of the Home list?");
    EXPECT_EQ(clearQuestion(Side::Home).title, u"Clear Home");
    EXPECT_EQ(clearQuestion(Side::Target).text,
              u"Do you want to clear the contents of the Target list?");
    EXPECT_EQ(clearQuestion(Side::Target).title, u"Clear Target");
}

TEST(HomeTargetRefresh, KeepsTheHomePositionAndTheLists) {
    HomeTarget panel = calculated(u"JO20AW", u"FN42AA");
    panel.refresh();
    EXPECT_EQ(panel.txtHome.text(), u"");
    EXPECT_EQ(panel.txtTarget.text(), u"");
    EXPECT_EQ(panel.lblDistKm, u"0 Km");
    EXPECT_EQ(panel.lblDistMile, u"0 Miles");
    EXPECT_EQ(panel.lblAzimuth, u"0 Degrees");
    EXPECT_EQ(panel.lblTargetLat, u"0°");
    EXPECT_EQ(panel.lblTargetLong, u"0°");
    EXPECT_EQ(panel.lblHomeLat, u"50.9375N°");
    EXPECT_EQ(panel.lblHomeLong, u"4.041667E°");
    EXPECT_EQ(panel.cmbHome.items.size(), 1U);
}

} // namespace

} // namespace orbisgrid
