#pragma once

#include "panels/command_line.h"

#include <string>

namespace orbisgrid {

/// Runs one job of the command line: puts its text on the clipboard so that it stays there, and
/// prints it on standard output with the terminal's line ends. A refusal shows its message box, or
/// goes to standard error where there is no display, and prints nothing.
///
/// Result: the exit status: 0, or 1 after a refusal or when the text could not be printed. Does not
/// return without an INI file in `programFolder`. No QApplication may exist; one is made when a box
/// has to be shown.
int runCommandLineJob(const CommandLine& commandLine, const std::string& programFolder, int& argc,
                      char** argv);

/// Shows a message box, or its text on standard error where there is no display.
void reportWithoutWindow(const Message& message, int& argc, char** argv);

} // namespace orbisgrid
