#pragma once

#include "records/byte_source.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace orbisgrid::test {

/// What a run of orbisgrid-batch left.
struct BatchResult {
    std::string output;
    std::string messages;
    int status = 0;
};

/// Runs a command line, "distance --home JO20AW", on one list of this name, as the program does but
/// on memory. The words of the command line stand between single blanks.
BatchResult runBatch(const std::string& commandLine, ByteSource& list, const std::string& name);

/// The same of bytes that come in pieces of this size.
BatchResult runBatch(const std::string& commandLine, std::string_view list, const std::string& name,
                     std::size_t pieceSize = 65536);

} // namespace orbisgrid::test
