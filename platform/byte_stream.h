#pragma once

#include "platform/file_descriptor.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace orbisgrid {

/// Opens a file, a pipe or a device to be read; none where that cannot be, with the reason in
/// errno.
FileDescriptor openToRead(const std::string& path);

/// The next bytes: how many went into `room`, 0 at the end, nothing with the reason in errno where
/// they cannot be read.
std::optional<std::size_t> readNext(const FileDescriptor& file, std::span<char> room);

/// Writes all of `bytes`. Result: false with the reason in errno where that cannot be done.
bool writeNext(const FileDescriptor& file, std::string_view bytes);

/// How many bytes a regular file has; nothing for a pipe or a device, which do not say. It is not
/// opened: a pipe's writer would take a reader that closes at once for its only one, and end.
std::optional<std::uint64_t> sizeOfFile(const std::string& path);

/// Whether `path` leads to the regular file that is open as `file`.
bool isSameFile(const std::string& path, const FileDescriptor& file);

/// Whether a person sees what is written there.
bool isTerminal(const FileDescriptor& file);

/// What the system's number for a failure means, in its words.
std::string reasonOf(int error);

} // namespace orbisgrid
