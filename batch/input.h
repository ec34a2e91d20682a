#pragma once

#include "platform/file_descriptor.h"
#include "records/byte_source.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace orbisgrid {

/// The bytes of a file, or of the standard input where its name is "-".
class FileSource : public ByteSource {
public:
    /// Opens it; the reason is in errno where that cannot be.
    explicit FileSource(const std::string& name);

    [[nodiscard]] bool isOpen() const { return static_cast<bool>(m_file); }

    std::optional<std::size_t> read(std::span<char> room) override;

private:
    FileDescriptor m_file;
};

/// How many bytes there are in all of the files ("-" is the standard input); nothing where one does
/// not say, as a pipe.
[[nodiscard]] std::optional<std::uint64_t> totalOf(const std::vector<std::string>& names);

/// The first of the files that is open as `output` too: what is written there would be read in its
/// turn, without an end.
[[nodiscard]] std::optional<std::string> fileThatIs(const FileDescriptor& output,
                                                    const std::vector<std::string>& names);

} // namespace orbisgrid
