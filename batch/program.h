#pragma once

#include <span>

namespace orbisgrid {

/// The program from its arguments to its exit status, on the standard streams of the process.
[[nodiscard]] int runProgram(std::span<char* const> arguments);

} // namespace orbisgrid
