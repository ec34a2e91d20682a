#include "fuzz/oracle.h"
#include "panels/locator_converter_form.h"
#include "tests/support/panel_invariants.h"
#include "tests/support/recorded_messages.h"

#include <array>

namespace orbisgrid::fuzz {

namespace {

/// The parts of one line: they are separated by ";", and one that is not there is empty.
std::array<Text, 8> partsOf(const Text& line) {
    std::array<Text, 8> parts;
    std::size_t part = 0;
    for (const char16_t character : line) {
        if (character == u';')
            part = std::min(part + 1, parts.size() - 1);
        else
            parts[part] += character;
    }
    return parts;
}

/// One line is one action: a letter for the panel and what is typed there. Result: whether its
/// chain ran to the end, so that letters and signs agree.
bool act(LocatorConverterForm& form, const Text& line, test::RecordedMessages& messages) {
    Converter& converter = form.converter;
    const auto parts = partsOf(line.substr(1));
    switch (line.front()) {
    case u'L':
        converter.txtLocator.set(line.substr(1));
        return form.convertLocator(messages);
    case u'D':
        converter.txtDecLat.set(parts[0]);
        converter.txtDecLong.set(parts[1]);
        converter.cmdOKDecimal_Click(messages);
        return messages.shown.empty();
    case u'M':
        for (std::size_t i = 0; i < 3; ++i) {
            converter.txtlatdms[i].set(parts[i]);
            converter.txtlondms[i].set(parts[i + 4]);
        }
        converter.cmbDmsNS.ListIndex = parts[3] == u"S" ? 1 : 0;
        converter.cmbDmsWE.ListIndex = parts[7] == u"W" ? 1 : 0;
        converter.cmdOkDMS_Click(messages);
        return messages.shown.empty();
    case u'U':
        converter.txtUIView.set(line.substr(1));
        converter.cmdOkUIView_Click(messages);
        return converter.txtUIView.text().size() >= 10;
    case u'P':
        converter.paste(line.substr(1));
        return false;
    case u'C':
        form.homeTarget.txtHome.set(parts[0]);
        form.homeTarget.txtTarget.set(parts[1]);
        return form.calculate(messages) == CalculateEnd::calculated;
    default:
        form.refresh();
        return false;
    }
}

/// A second form that goes the same way shows the same: nothing is kept outside of it.
void requireSame(const Converter& one, const Converter& other) {
    require(one.everythingCopy() == other.everythingCopy(), "the same again");
}

} // namespace

} // namespace orbisgrid::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace orbisgrid;
    LocatorConverterForm form;
    LocatorConverterForm second;
    for (const Text& line : fuzz::linesOf(data, size)) {
        if (line.empty())
            continue;
        test::RecordedMessages messages;
        const bool isFinished = fuzz::act(form, line, messages);
        test::RecordedMessages others;
        fuzz::act(second, line, others);
        fuzz::require(messages.shown.size() <= 1, "one message at most");
        fuzz::require(test::boxesAreCut(form.converter), "boxes");
        fuzz::require(test::compressedStands(form.converter), "compressed code");
        fuzz::require(test::unitWordsStand(form.homeTarget), "unit words");
        fuzz::require(!isFinished || test::lettersAgree(form.converter), "letters");
        fuzz::require(!isFinished || test::hasNoComma(form.converter), "commas");
    }
    fuzz::requireSame(form.converter, second.converter);
    fuzz::require(form.homeTarget.report() == second.homeTarget.report(), "the same report");
    return 0;
}
