#include "panels/converter.h"
#include "panels/locator_converter_form.h"
#include "tests/support/recorded_messages.h"
#include "tests/support/table.h"

namespace orbisgrid {

namespace {

using test::RecordedMessages;
using test::Row;

void expectMessage(const RecordedMessages& messages, TextView text, TextView title,
                   MessageIcon icon) {
    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].text, text);
    EXPECT_EQ(messages.shown[0].title, title);
    EXPECT_EQ(messages.shown[0].icon, icon);
}

Converter converted(TextView locator) {
    LocatorConverterForm form;
    RecordedMessages messages;
    form.converter.txtLocator.set(locator);
    form.convertLocator(messages);
    return form.converter;
}

TEST(ConverterMessages, ShortLocator) {
    RecordedMessages messages;
    FormTexts texts;
    Converter converter;
    EXPECT_FALSE(converter.cmdOKLocator_Click(texts, messages));
    expectMessage(messages,
                  u"A Maidenhead locator needs at least 4 characters. Examples: JO20, FN10, "
                  u"JO20AW...",
                  u"Input error", MessageIcon::exclamation);
}

TEST(ConverterMessages, MalformedLocator) {
    RecordedMessages messages;
    FormTexts texts;
    Converter converter;
    converter.txtLocator.set(u"JO2A");
    EXPECT_TRUE(converter.cmdOKLocator_Click(texts, messages));
    expectMessage(messages, u"Locator has an invalid format.", u"Invalid Locator",
                  MessageIcon::information);
}

TEST(ConverterMessages, EmptyDecimalBox) {
    RecordedMessages messages;
    Converter converter;
    converter.cmdOKDecimal_Click(messages);
    expectMessage(messages, u"Invalid entry", u"", MessageIcon::none);
}

TEST(ConverterMessages, LatitudeDegreesEndInABlank) {
    RecordedMessages messages;
    Converter converter;
    EXPECT_FALSE(converter.cmdOkDMS_Click(messages));
    expectMessage(messages,
                  u"Could not calculate/convert locator. Please check the input fields for "
                  u"correct values. ",
                  u"", MessageIcon::none);
}

TEST(ConverterMessages, LongitudeDegreesDoNot) {
    RecordedMessages messages;
    Converter converter;
    converter.txtlatdms[0].set(u"50");
    EXPECT_FALSE(converter.cmdOkDMS_Click(messages));
    expectMessage(messages,
                  u"Could not calculate/convert locator. Please check the input fields for "
                  u"correct values.",
                  u"", MessageIcon::none);
    EXPECT_EQ(converter.txtDecLat.text(), u"50.");
}

TEST(ConverterMessages, DegreesThatAreNumbersAreAccepted) {
    RecordedMessages messages;
    Converter converter;
    converter.txtlatdms[0].set(u"50");
    converter.txtlondms[0].set(u"4");
    EXPECT_TRUE(converter.cmdOkDMS_Click(messages)) << "the window moves the focus on";
    EXPECT_TRUE(messages.shown.empty());
}

TEST(ConverterLists, HaveTwoHemispheresEach) {
    const Converter converter;
    for (const HemisphereList* list : {&converter.cmbDmsNS, &converter.cmbDmsWE})
        EXPECT_EQ(list->items.size(), 2U);
}

TEST(ConverterBoxes, HaveTheirMaximumLengths) {
    const Converter converter;
    EXPECT_EQ(converter.txtLocator.maximumLength(), 10U);
    EXPECT_EQ(converter.txtDecLat.maximumLength(), 11U);
    EXPECT_EQ(converter.txtDecLong.maximumLength(), 10U);
    EXPECT_EQ(converter.txtUIView.maximumLength(), 21U);
    EXPECT_EQ(converter.txtlatdms[0].maximumLength(), 3U);
    EXPECT_EQ(converter.txtlatdms[1].maximumLength(), 2U);
    EXPECT_EQ(converter.txtlatdms[2].maximumLength(), 2U);
    EXPECT_EQ(converter.txtlondms[0].maximumLength(), 4U);
    EXPECT_EQ(converter.txtlondms[1].maximumLength(), 2U);
    EXPECT_EQ(converter.txtlondms[2].maximumLength(), 2U);
}

TEST(ConverterLabels, FollowTheDecimalBoxes) {
    Converter converter;
    EXPECT_EQ(converter.lblDecNS(), u"N");
    EXPECT_EQ(converter.lblDecEW(), u"E");
    converter.txtDecLat.set(u"-0.1");
    converter.txtDecLong.set(u"-4");
    EXPECT_EQ(converter.lblDecNS(), u"S");
    EXPECT_EQ(converter.lblDecEW(), u"W");
    converter.txtDecLat.set(u"-");
    converter.txtDecLong.set(u"-0");
    EXPECT_EQ(converter.lblDecNS(), u"N");
    EXPECT_EQ(converter.lblDecEW(), u"E");
}

/// The decimal boxes and both lists behind MaidenConvert. The lists held `northSouth` and
/// `westEast` before, so that each is seen to be set.
Text maidenConverted(TextView locator, int northSouth, int westEast, FormTexts& texts) {
    RecordedMessages messages;
    Converter converter;
    converter.txtLocator.set(locator);
    converter.cmbDmsNS.ListIndex = northSouth;
    converter.cmbDmsWE.ListIndex = westEast;
    converter.MaidenConvert(texts, messages);
    Text boxes = converter.txtLocator.text();
    for (const TextView text : {TextView(converter.txtDecLat.text()), converter.cmbDmsNS.text(),
                                TextView(converter.txtDecLong.text()), converter.cmbDmsWE.text()})
        (boxes += u'|') += text;
    return boxes;
}

TEST(ConverterMaidenConvert, FillsTheDecimalBoxesAndTakesADigitForWest) {
    FormTexts texts;
    EXPECT_EQ(maidenConverted(u" jo20aw ", 1, 0, texts), u"JO20AW| 50.937|N| 4.04166|W");
    EXPECT_EQ(texts.LonText, u"4.041667E");
    EXPECT_EQ(texts.LatText, u"50.9375N");
}

TEST(ConverterMaidenConvert, ListsFollowTheLettersOfAnEarlierDecode) {
    FormTexts texts;
    texts.LonText = u"18.4E";
    texts.LatText = u"33.9S";
    EXPECT_EQ(maidenConverted(u"JO2", 0, 1, texts), u"JO2|33.9|S|18.4|E");
}

TEST(ConverterUIView, ShowsZerosBeforeAPositionIsThere) {
    RecordedMessages messages;
    Converter converter;
    converter.UIView(messages);
    EXPECT_EQ(converter.txtUIView.text(), u"=0000.00N/00000.00E");
}

TEST(ConverterCopies, AfterALocator) {
    const Converter converter = converted(u"jo20aw");
    EXPECT_EQ(converter.locatorCopy(), u"Maidenhead Locator:JO20AW\r\n");
    EXPECT_EQ(converter.decimalCopy(), u"Latitude: 50.937\r\nLongitude: 4.04166\r\n");
    EXPECT_EQ(converter.dmsCopy(), u"World Latitude:50°56'13 N\r\nWorld Longitude:4°2'30 E\r\n");
    EXPECT_EQ(converter.aprsCopy(),
              u"UI-View string:=5056.13N/00402.30E\r\nCompressed:=/4drbOOx2-  B");
    EXPECT_EQ(converter.everythingCopy(), u"Maidenhead Locator:JO20AW\r\n"
                                          u"Decimal Latitude: 50.937\r\n"
                                          u"Decimal Longitude: 4.04166\r\n"
                                          u"World Latitude:50°56'13N\r\n"
                                          u"World Longitude:4°2'30E\r\n"
                                          u"UI-View string:=5056.13N/00402.30E\r\n"
                                          u"APRS Compressed:=/4drbOOx2-  B");
}

TEST(ConverterCopies, UpperCaseTheLocatorBox) {
    Converter converter;
    converter.txtLocator.set(u" jo20aw ");
    EXPECT_EQ(converter.locatorCopy(), u"Maidenhead Locator: JO20AW \r\n");
    EXPECT_EQ(converter.menuLocator(), u"JO20AW");
}

TEST(ConverterCopies, WorkedExampleOfDegrees) {
    RecordedMessages messages;
    Converter converter;
    converter.txtUIView.set(u"=5056.17N/00402.07E");
    converter.cmdOkUIView_Click(messages);
    EXPECT_TRUE(converter.dmsCopy().starts_with(u"World Latitude:50°56'17 N\r\n"));
}

TEST(ConverterCompressed, NeedsSixCharactersOfUIViewText) {
    RecordedMessages messages;
    Converter converter;
    converter.txtDecLat.set(u"50.93806");
    converter.txtDecLong.set(u"4.051944");
    converter.txtUIView.set(u"=5056");
    converter.DoAPRSCompressed(messages);
    EXPECT_EQ(converter.lblCompressed, u"");
    converter.txtUIView.set(u"=50561");
    converter.DoAPRSCompressed(messages);
    EXPECT_EQ(converter.lblCompressed, u"=/4dn;OP2b-  B");
}

TEST(ConverterCompressed, ReadsTheUIViewTextWhereBothDecimalBoxesReadZero) {
    RecordedMessages messages;
    Converter converter;
    converter.txtUIView.set(u"=5056.17N/00402.67E");
    converter.DoAPRSCompressed(messages);
    EXPECT_EQ(converter.txtDecLat.text(), u"50.93806");
    EXPECT_EQ(converter.lblCompressed, u"=/4dn;OP2b-  B");
}

TEST(ConverterCompressed, OneDecimalBoxThatIsNotZeroIsEnough) {
    RecordedMessages messages;
    Converter converter;
    converter.txtDecLong.set(u"4");
    converter.txtUIView.set(u"=5056.17N/00402.67E");
    converter.DoAPRSCompressed(messages);
    EXPECT_EQ(converter.txtDecLat.text(), u"");
    EXPECT_EQ(converter.lblCompressed, u"=/NN!!OO!!-  B");
}

TEST(ConverterRefresh, KeepsTheCompressedCode) {
    Converter converter = converted(u"FF46AD");
    const Text compressed = converter.lblCompressed;
    converter.refresh();
    EXPECT_EQ(converter.txtLocator.text(), u"");
    EXPECT_EQ(converter.txtDecLat.text(), u"0");
    EXPECT_EQ(converter.txtDecLong.text(), u"0");
    EXPECT_EQ(converter.txtUIView.text(), u"");
    EXPECT_EQ(converter.txtlatdms[0].text(), u"00");
    EXPECT_EQ(converter.txtlatdms[2].text(), u"00");
    EXPECT_EQ(converter.txtlondms[0].text(), u"000");
    EXPECT_EQ(converter.txtlondms[1].text(), u"00");
    EXPECT_EQ(converter.cmbDmsNS.text(), u"N");
    EXPECT_EQ(converter.cmbDmsWE.text(), u"E");
    EXPECT_EQ(converter.lblCompressed, compressed);
}

TEST(ConverterTestButton, ShowsADistanceInKilometres) {
    RecordedMessages messages;
    Converter converter;
    EXPECT_EQ(converter.Label1, u"Maidenhead:");
    converter.Command2_Click(messages);
    EXPECT_EQ(converter.Label1, u"134.767616");
    EXPECT_TRUE(messages.shown.empty());
}

class PasteTest : public testing::TestWithParam<Row> {};

TEST_P(PasteTest, TakesWhatPeoplePaste) {
    const Row& row = GetParam();
    Converter converter;
    converter.paste(row.text("clipboard"));
    EXPECT_EQ(toUtf8(converter.txtLocator.text()), row["txtLocator"]);
}

INSTANTIATE_TEST_SUITE_P(Rows, PasteTest, testing::ValuesIn(test::readTable("converter_paste.tsv")),
                         test::testName);

class MapQueryTest : public testing::TestWithParam<Row> {};

TEST_P(MapQueryTest, WritesFractionsOut) {
    const Row& row = GetParam();
    Converter converter;
    converter.txtDecLat.set(row.text("txtDecLat"));
    converter.txtDecLong.set(row.text("txtDecLong"));
    const MapQuery query = mapQuery(converter);
    EXPECT_EQ(toUtf8(query.latitude), row["latitude"]);
    EXPECT_EQ(toUtf8(query.longitude), row["longitude"]);
}

INSTANTIATE_TEST_SUITE_P(Rows, MapQueryTest, testing::ValuesIn(test::readTable("map_query.tsv")),
                         test::testName);

TEST(LocatorConverterForm, RefreshClearsBothPanels) {
    LocatorConverterForm form;
    RecordedMessages messages;
    form.homeTarget.txtHome.set(u"JO20AW");
    form.homeTarget.txtTarget.set(u"FN42AA");
    form.calculate(messages);
    form.refresh();
    EXPECT_EQ(form.homeTarget.txtHome.text(), u"");
    EXPECT_EQ(form.homeTarget.lblDistKm, u"0 Km");
    EXPECT_EQ(form.converter.txtLocator.text(), u"");
    EXPECT_EQ(form.converter.txtDecLat.text(), u"0");
}

} // namespace

} // namespace orbisgrid
