#pragma once

#include <string>

namespace orbisgrid {

/// The full path of the program that shows what this machine is made of: the running desktop's own
/// tool (XDG_CURRENT_DESKTOP, its first name first), else any of the usual ones that is installed.
/// Empty where there is none. Programs are looked for in PATH.
std::string findSystemInformationTool();

} // namespace orbisgrid
