#pragma once

#include "panels/command_line.h"

#include <string>
#include <vector>

namespace orbisgrid {

/// Runs one job of the command line: puts its text on the clipboard so that it stays there, and
/// prints it on standard output with the terminal's line ends. A refusal shows its message box, or
/// goes to standard error where there is no display, and prints nothing.
///
/// What a box had no room for is left out, and named in a line on standard error.
///
/// Result: the exit status: 0, or 1 after a refusal or when the text could not be printed, which is
/// said on standard error with the reason. Does not
/// return without an INI file in `programFolder`. No QApplication may exist; one is made when a box
/// has to be shown.
int runCommandLineJob(const CommandLine& commandLine, const std::string& programFolder, int& argc,
                      char** argv);

/// Shows message boxes, or their texts on standard error where there is no display that answers;
/// the process may end then, with status 1.
void reportWithoutWindow(const std::vector<Message>& messages, int& argc, char** argv);

} // namespace orbisgrid
