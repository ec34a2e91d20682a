#include "panels/locator_converter_form.h"
#include "tests/support/recorded_messages.h"
#include "tests/support/table.h"

#include <sstream>

namespace orbisgrid {

namespace {

using test::Row;

std::vector<std::string> split(const std::string& text, const std::string& separator) {
    std::vector<std::string> parts;
    std::size_t start = 0;
    for (std::size_t end = text.find(separator); end != std::string::npos;
         end = text.find(separator, start)) {
        parts.push_back(text.substr(start, end - start));
        start = end + separator.size();
    }
    parts.push_back(text.substr(start));
    return parts;
}

/// One action of a row: types into a panel and presses its OK.
void act(const std::string& action, LocatorConverterForm& form, Messages& messages) {
    Converter& converter = form.converter;
    const std::vector<std::string> typed = split(action.substr(2), ";");
    switch (action.front()) {
    case 'L':
        converter.txtLocator.set(fromUtf8(typed.at(0)));
        form.convertLocator(messages);
        break;
    case 'D':
        converter.txtDecLat.set(fromUtf8(typed.at(0)));
        converter.txtDecLong.set(fromUtf8(typed.at(1)));
        converter.cmdOKDecimal_Click(messages);
        break;
    case 'M':
        for (std::size_t i = 0; i < 3; ++i) {
            converter.txtlatdms.at(i).set(fromUtf8(typed.at(i)));
            converter.txtlondms.at(i).set(fromUtf8(typed.at(i + 4)));
        }
        converter.cmbDmsNS.ListIndex = typed.at(3) == "S" ? 1 : 0;
        converter.cmbDmsWE.ListIndex = typed.at(7) == "W" ? 1 : 0;
        converter.cmdOkDMS_Click(messages);
        break;
    case 'U':
        converter.txtUIView.set(fromUtf8(typed.at(0)));
        converter.cmdOkUIView_Click(messages);
        break;
    default:
        FAIL() << "unknown action " << action;
    }
}

std::string shown(const std::array<TextBox, 3>& boxes, TextView letter) {
    return toUtf8(boxes[0].text() + u' ' + boxes[1].text() + u' ' + boxes[2].text() + u' ' +
                  Text(letter));
}

class ConverterChainTest : public testing::TestWithParam<Row> {};

TEST_P(ConverterChainTest, FillsEveryPanel) {
    const Row& row = GetParam();
    LocatorConverterForm form;
    test::RecordedMessages messages;
    for (const std::string& action : split(row.fields[0], " | "))
        act(action, form, messages);
    const Converter& converter = form.converter;
    EXPECT_EQ(messages.shown.size(), row.number(1));
    EXPECT_EQ(toUtf8(converter.txtLocator.text()), row.fields[2]);
    EXPECT_EQ(toUtf8(converter.txtDecLat.text()), row.fields[3]);
    EXPECT_EQ(toUtf8(converter.txtDecLong.text()), row.fields[4]);
    EXPECT_EQ(shown(converter.txtlatdms, converter.cmbDmsNS.text()), row.fields[5]);
    EXPECT_EQ(shown(converter.txtlondms, converter.cmbDmsWE.text()), row.fields[6]);
    EXPECT_EQ(toUtf8(converter.txtUIView.text()), row.fields[7]);
    EXPECT_EQ(toUtf8(converter.lblCompressed), row.fields[8]);
}

INSTANTIATE_TEST_SUITE_P(Rows, ConverterChainTest,
                         testing::ValuesIn(test::readTable("converter_chains.tsv", 9)),
                         test::testName);

} // namespace

} // namespace orbisgrid
