#include "fuzz/oracle.h"
#include "tests/support/panel_actions.h"
#include "tests/support/panel_invariants.h"

namespace orbisgrid::fuzz {

namespace {

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
        const test::PanelAction action = test::actionOf(line);
        test::RecordedMessages messages;
        const bool isFinished = test::act(form, action, messages);
        test::RecordedMessages others;
        test::act(second, action, others);
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
