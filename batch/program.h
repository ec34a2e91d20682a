#pragma once

#include "batch/options.h"

#include <memory>
#include <span>

namespace orbisgrid {

/// What a command line has done to each record.
[[nodiscard]] std::unique_ptr<Task> makeTask(const Invocation& call);

/// The program from its arguments to its exit status, on the standard streams of the process.
[[nodiscard]] int runProgram(std::span<char* const> arguments);

} // namespace orbisgrid
