#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orbisgrid {

/// The full path of a program that is looked for in PATH; empty where there is none. Only files
/// that this user may run count.
std::string findProgram(std::string_view name);

/// Starts a program by its path and does not wait for it. It gets each argument byte for byte, is
/// nobody's child here, has a session of its own, and outlives this process.
/// Result: whether it was started.
bool startProgram(const std::string& path, const std::vector<std::string>& arguments = {});

} // namespace orbisgrid
