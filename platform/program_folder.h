#pragma once

#include <string>

namespace orbisgrid {

/// The folder that holds the executable, links resolved: the INI file and the manual lie there. No
/// trailing separator except at the root.
///
/// The environment variable ORBISGRID_PROGRAM_FOLDER takes its place when it is set and not empty
/// (a package's launcher names a folder that the user can write); a relative path counts from the
/// current folder, links in it stay as they are.
///
/// Where the system does not say which file runs, the current folder.
std::string programFolder();

/// The folder that holds the executable, links resolved, whatever takes its place as the program
/// folder: what belongs to the executable lies there. Empty where the system does not say which
/// file runs.
std::string executableFolder();

} // namespace orbisgrid
