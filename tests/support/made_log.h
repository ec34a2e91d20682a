#pragma once

#include <cstddef>
#include <string>

namespace orbisgrid::test {

/// What contacts of a made-up log hold.
enum class LogKind {
    plain, ///< 30 fields each, as the standard has them
    odd    ///< all that real logs hold, mixed at random
};

/// A log of made-up contacts; the same each time. None has a DISTANCE in the form that is added.
std::string madeLog(std::size_t contacts, LogKind kind);

/// A locator of six characters, the same for the same number.
std::string madeLocator(std::size_t number);

} // namespace orbisgrid::test
