#include "fuzz/oracle.h"
#include "panels/command_line.h"
#include "tests/support/panel_invariants.h"
#include "tests/support/recorded_messages.h"

namespace orbisgrid::fuzz {

namespace {

Text withoutBlanksAround(Text text) {
    while (text.starts_with(u' '))
        text.erase(0, 1);
    while (text.ends_with(u' '))
        text.pop_back();
    return text;
}

/// The arguments by what a person would say of them.
CommandLine readAgain(const Text& arguments) {
    const Text text = upperCase(arguments);
    if (text.size() < 4)
        return {};
    if (text[0] == u'-' && text[1] == u'C')
        return {CommandLine::Job::convert, withoutBlanksAround(text.substr(2)), {}};
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == u' ')
            return {CommandLine::Job::distance, text.substr(0, i),
                    withoutBlanksAround(text.substr(i))};
    }
    return {};
}

void runJobOf(const CommandLine& commandLine) {
    LocatorConverterForm form;
    test::RecordedMessages messages;
    const JobResult result = runJob(commandLine, form, messages);
    require(result.refused == !messages.shown.empty(), "refused where a message was shown");
    const bool isJob = commandLine.job != CommandLine::Job::none;
    require(result.clipboard.empty() == !isJob && result.printed.empty() == !isJob,
            "texts of a job");
    require(test::boxesAreCut(form.converter), "boxes");
    require(test::compressedStands(form.converter), "compressed code");
    require(test::unitWordsStand(form.homeTarget), "unit words");
}

} // namespace

} // namespace orbisgrid::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace orbisgrid;
    const Text text = fromUtf8(fuzz::bytesOf(data, size));
    const CommandLine commandLine = readCommandLine(text);
    const CommandLine expected = fuzz::readAgain(text);
    fuzz::require(commandLine.job == expected.job && commandLine.first == expected.first &&
                      commandLine.second == expected.second,
                  "what is asked for");
    fuzz::runJobOf(commandLine);
    return 0;
}
