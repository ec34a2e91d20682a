#include "platform/environment.h"

#include <cstdlib>

namespace orbisgrid {

std::string environmentVariable(const char* name) {
    const char* value = std::getenv(name); // NOLINT(concurrency-mt-unsafe): nobody changes it
    return value == nullptr ? std::string() : std::string(value);
}

} // namespace orbisgrid
