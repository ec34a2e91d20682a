#include "panels/command_line.h"

namespace orbisgrid {

namespace {

/// Hands messages on and remembers that there was one.
class CountedMessages : public Messages {
public:
    explicit CountedMessages(Messages& messages)
        : m_messages(messages) {}

    void show(const Message& message) override {
        m_anyShown = true;
        m_messages.show(message);
    }

    bool anyShown() const { return m_anyShown; }

private:
    Messages& m_messages;
    bool m_anyShown = false;
};

} // namespace

Text joinedArguments(const std::vector<std::string_view>& arguments) {
    Text text;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        if (i > 0)
            text += u' ';
        text += fromUtf8(arguments[i]);
    }
    return text;
}

CommandLine readCommandLine(TextView arguments) {
    constexpr std::size_t longestIgnored = 3;
    const Text text = upperCase(arguments);
    if (text.size() <= longestIgnored)
        return {};
    if (text.starts_with(u"-C"))
        return {CommandLine::Job::convert, Text(trimmed(TextView(text).substr(2))), {}};
    const std::size_t blank = text.find(u' ');
    if (blank == Text::npos)
        return {};
    return {CommandLine::Job::distance, text.substr(0, blank),
            Text(trimmed(TextView(text).substr(blank)))};
}

JobResult runJob(const CommandLine& commandLine, LocatorConverterForm& form, Messages& messages) {
    CountedMessages counted(messages);
    JobResult result;
    switch (commandLine.job) {
    case CommandLine::Job::none:
        break;
    case CommandLine::Job::convert:
        form.converter.txtLocator.set(commandLine.first);
        form.convertLocator(counted);
        result.clipboard = form.converter.locatorCopy();
        result.printed = form.converter.everythingCopy();
        break;
    case CommandLine::Job::distance:
        form.homeTarget.txtHome.set(commandLine.first);
        form.homeTarget.txtTarget.set(commandLine.second);
        form.calculate(counted);
        result.clipboard = form.homeTarget.report();
        result.printed = result.clipboard;
        break;
    }
    result.refused = counted.anyShown();
    return result;
}

} // namespace orbisgrid
