#pragma once

#include <cstddef>
#include <optional>
#include <span>

namespace orbisgrid {

/// Where the bytes of a file come from, in pieces of any size.
class ByteSource {
public:
    ByteSource() = default;
    ByteSource(const ByteSource&) = delete;
    ByteSource& operator=(const ByteSource&) = delete;
    virtual ~ByteSource() = default;

    /// Puts the next bytes into `room`, which is not empty. Result: how many; 0 at the end; nothing
    /// where they cannot be read.
    virtual std::optional<std::size_t> read(std::span<char> room) = 0;
};

} // namespace orbisgrid
