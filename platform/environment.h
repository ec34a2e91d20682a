#pragma once

#include <string>

namespace orbisgrid {

/// The value of an environment variable, byte for byte; empty where it is not set.
std::string environmentVariable(const char* name);

} // namespace orbisgrid
