#include "app/command_line_job.h"

#include "app/window_library.h"
#include "platform/clipboard_keeper.h"
#include "platform/clipboard_route.h"
#include "platform/display.h"
#include "platform/endless_wait.h"
#include "platform/safe_file.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <string>
#include <string_view>
#include <system_error>
#include <tuple>
#include <vector>

namespace orbisgrid {

namespace {

/// Keeps the messages until the clipboard has its keeper: a box needs a QApplication, and after
/// that no process can be split off safely.
class KeptMessages : public Messages {
public:
    void show(const Message& message) override { m_messages.push_back(message); }

    const std::vector<Message>& messages() const { return m_messages; }

private:
    std::vector<Message> m_messages;
};

std::string forTerminal(const Text& text) {
    std::string bytes = toUtf8(text);
    std::erase(bytes, '\r');
    if (!bytes.ends_with('\n'))
        bytes += '\n';
    return bytes;
}

bool print(std::FILE* stream, const Text& text) {
    const std::string bytes = forTerminal(text);
    const bool isWritten = std::fwrite(bytes.data(), 1, bytes.size(), stream) == bytes.size();
    return std::fflush(stream) == 0 && isWritten;
}

bool printResult(const Text& text) {
    if (print(stdout, text))
        return true;
    const std::string reason = std::system_category().message(errno);
    std::ignore =
        std::fprintf(stderr, "orbisgrid: the result could not be printed: %s\n", reason.c_str());
    return false;
}

void printMessages(const std::vector<Message>& messages) {
    for (const Message& message : messages)
        print(stderr, message.text);
}

/// Names what of `text` is behind the end of the box that it is meant for; empty if nothing is.
std::string leftOut(const Text& text, const TextBox& box, std::string_view whose) {
    const TextView left =
        trimmed(TextView(text).substr(std::min(text.size(), box.maximumLength())));
    if (left.empty())
        return {};
    std::string line = "\"";
    line += toUtf8(left);
    line.append("\" of ").append(whose).append(" (at most ");
    line += std::to_string(box.maximumLength());
    line += " characters)";
    std::replace_if( // the line stays one
        line.begin(), line.end(), [](char byte) { return byte >= 0 && byte < ' '; }, '?');
    return line;
}

/// The boxes cut what they cannot hold, and the result is of the rest.
void reportWhatIsLeftOut(const CommandLine& commandLine, const LocatorConverterForm& form) {
    std::string line;
    if (commandLine.job == CommandLine::Job::convert) {
        line = leftOut(commandLine.first, form.converter.txtLocator, "the locator");
    } else {
        line = leftOut(commandLine.first, form.homeTarget.txtHome, "Home");
        const std::string second = leftOut(commandLine.second, form.homeTarget.txtTarget, "Target");
        if (!line.empty() && !second.empty())
            line += ", ";
        line += second;
    }
    if (!line.empty())
        std::ignore = std::fprintf(stderr, "orbisgrid: left out: %s\n", line.c_str());
}

void reportClipboard(bool isCopied) {
    const DisplayEnvironment named = displayEnvironment();
    const bool isDisplayNamed = !named.display.empty() || !named.waylandDisplay.empty();
    if (!isCopied && isDisplayNamed)
        std::ignore = std::fputs("orbisgrid: the clipboard could not be reached.\n", stderr);
    // It has the text for the X programs; whether others get it is the compositor's to decide.
    if (isCopied && !named.waylandDisplay.empty() && clipboardRoute() == ClipboardRoute::x11Keeper)
        std::ignore = std::fputs("orbisgrid: the clipboard could not be reached for certain; under "
                                 "Wayland that takes wl-copy (package wl-clipboard).\n",
                                 stderr);
}

} // namespace

void reportWithoutWindow(const std::vector<Message>& messages, int& argc, char** argv) {
    const WindowLibrary* windows = isDesktopSession() ? loadWindowLibrary() : nullptr;
    if (windows != nullptr)
        windows->showMessages(messages, argc, argv, printMessages);
    else
        printMessages(messages);
}

int runCommandLineJob(const CommandLine& commandLine, const std::string& programFolder, int& argc,
                      char** argv) {
    // The window reads the file before it looks at the command line, and so does a job: nothing of
    // it is needed, but without it the program does not start.
    if (!readFile(programFolder + "/Orbisgrid.ini"))
        waitEndlessly();
    LocatorConverterForm form;
    KeptMessages kept;
    const JobResult result = runJob(commandLine, form, kept);

    ClipboardHandover clipboard = ClipboardHandover::start(toUtf8(result.clipboard));
    bool isPrinted = true;
    if (!result.refused)
        isPrinted = printResult(result.printed);
    reportClipboard(clipboard.wait());
    reportWhatIsLeftOut(commandLine, form);
    if (!kept.messages().empty())
        reportWithoutWindow(kept.messages(), argc, argv);
    return result.refused || !isPrinted ? 1 : 0;
}

} // namespace orbisgrid
