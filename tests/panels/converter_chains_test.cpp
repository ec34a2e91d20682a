#include "tests/support/panel_actions.h"

namespace orbisgrid {

namespace {

using test::Row;

std::string shown(const std::array<TextBox, 3>& boxes, TextView letter) {
    return toUtf8(boxes[0].text() + u' ' + boxes[1].text() + u' ' + boxes[2].text() + u' ' +
                  Text(letter));
}

class ConverterChainTest : public testing::TestWithParam<Row> {};

TEST_P(ConverterChainTest, FillsEveryPanel) {
    const Row& row = GetParam();
    LocatorConverterForm form;
    test::RecordedMessages messages;
    for (const test::PanelAction& action : test::actionsOf(row.text("actions")))
        test::act(form, action, messages);
    const Converter& converter = form.converter;
    std::vector<Message> expected;
    if (const auto message = test::expectedMessage(row))
        expected.push_back(*message);
    EXPECT_EQ(test::described(messages.shown), test::described(expected));
    EXPECT_EQ(toUtf8(converter.txtLocator.text()), row["txtLocator"]);
    EXPECT_EQ(toUtf8(converter.txtDecLat.text()), row["txtDecLat"]);
    EXPECT_EQ(toUtf8(converter.txtDecLong.text()), row["txtDecLong"]);
    EXPECT_EQ(shown(converter.txtlatdms, converter.cmbDmsNS.text()), row["lat dms"]);
    EXPECT_EQ(shown(converter.txtlondms, converter.cmbDmsWE.text()), row["lon dms"]);
    EXPECT_EQ(toUtf8(converter.txtUIView.text()), row["txtUIView"]);
    EXPECT_EQ(toUtf8(converter.lblCompressed), row["lblCompressed"]);
}

INSTANTIATE_TEST_SUITE_P(Rows, ConverterChainTest,
                         testing::ValuesIn(test::readTable("converter_chains.tsv")),
                         test::testName);

} // namespace

} // namespace orbisgrid
