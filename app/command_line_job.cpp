#include "app/command_line_job.h"

#include "app/window_library.h"
#include "platform/clipboard_keeper.h"
#include "platform/clipboard_route.h"
#include "platform/display.h"
#include "platform/endless_wait.h"
#include "platform/safe_file.h"

#include <algorithm>
#include <cstdio>
#include <string>
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

void reportWithoutWindow(const Message& message, int& argc, char** argv) {
    const WindowLibrary* windows = isDesktopSession() ? loadWindowLibrary() : nullptr;
    if (windows != nullptr)
        windows->showMessage(message, argc, argv);
    else
        print(stderr, message.text);
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
        isPrinted = print(stdout, result.printed);
    reportClipboard(clipboard.wait());
    for (const Message& message : kept.messages())
        reportWithoutWindow(message, argc, argv);
    return result.refused || !isPrinted ? 1 : 0;
}

} // namespace orbisgrid
