#include "app/command_line_job.h"
#include "app/window_library.h"
#include "platform/clipboard_keeper.h"
#include "platform/home_folder.h"
#include "platform/per_user_store.h"
#include "platform/program_folder.h"
#include "ui/version.h"

#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

namespace {

using namespace orbisgrid;

CommandLine commandLineOf(int argc, char** argv) {
    std::vector<std::string_view> arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
    // A session manager's way of starting a window again; the identifier is for Qt.
    if (arguments.size() > 1 && arguments.front() == "-session")
        arguments.erase(arguments.begin(), arguments.begin() + 2);
    return readCommandLine(joinedArguments(arguments));
}

int refuseStore(int& argc, char** argv) {
    const Text file = fromUtf8(PerUserStore::defaultFilePath());
    reportWithoutWindow(
        {{u"The settings cannot be written: " + file, {}, MessageIcon::exclamation}}, argc, argv);
    return 1;
}

int run(int argc, char** argv) {
    if (isClipboardKeeperRole())
        return runClipboardKeeper();
    const CommandLine commandLine = commandLineOf(argc, argv);
    const std::string folder = programFolder();
    PerUserStore store;
    if (!RegistryStuff(store, fromUtf8(folder), versionText))
        return refuseStore(argc, argv);
    if (commandLine.job != CommandLine::Job::none)
        return runCommandLineJob(commandLine, folder, argc, argv);
    const WindowLibrary* windows = loadWindowLibrary();
    return windows == nullptr ? 1 : windows->runWindow(store, folder, argc, argv);
}

} // namespace

int main(int argc, char** argv) {
    provideHome();
    const int status = run(argc, argv);
    // What the libraries would take down goes with the process; a job need not wait for that.
    std::ignore = std::fflush(nullptr);
    std::_Exit(status);
}
