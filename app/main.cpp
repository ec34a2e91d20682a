#include "app/command_line_job.h"
#include "app/window_run.h"
#include "platform/clipboard_keeper.h"
#include "platform/display.h"
#include "platform/home_folder.h"
#include "platform/per_user_store.h"
#include "platform/program_folder.h"
#include "ui/qt_text.h"
#include "ui/version.h"

#include <cstdio>
#include <string_view>
#include <vector>

namespace {

using namespace orbisgrid;

CommandLine commandLineOf(int argc, char** argv) {
    const std::vector<std::string_view> arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
    return readCommandLine(joinedArguments(arguments));
}

int refuseWithoutDisplay() {
    static_cast<void>(std::fputs(
        "orbisgrid: there is no display for the window; start it in a desktop session (or "
        "set DISPLAY), or give it a job: orbisgrid JO20AW FN42AA, orbisgrid -CJO20AW\n",
        stderr));
    return 1;
}

int refuseStore(int& argc, char** argv) {
    const Text file = toText(PerUserStore::defaultFilePath());
    reportWithoutWindow({u"The settings cannot be written: " + file, {}, MessageIcon::exclamation},
                        argc, argv);
    return 1;
}

int run(int argc, char** argv) {
    if (isClipboardKeeperRole())
        return runClipboardKeeper();
    const CommandLine commandLine = commandLineOf(argc, argv);
    const bool wantsWindow = commandLine.job == CommandLine::Job::none;
    if (wantsWindow && !isDisplayUsable())
        return refuseWithoutDisplay();

    const QString folder = programFolder();
    PerUserStore store;
    if (!RegistryStuff(store, toText(folder), versionText))
        return refuseStore(argc, argv);
    return wantsWindow ? runWindow(store, folder, argc, argv)
                       : runCommandLineJob(commandLine, folder, argc, argv);
}

} // namespace

int main(int argc, char** argv) {
    provideHome();
    return run(argc, argv);
}
