#include "platform/file_descriptor.h"

#include <array>
#include <cerrno>

namespace orbisgrid {

std::optional<std::string> readToEnd(const FileDescriptor& file) {
    std::string bytes;
    std::array<char, 16384> buffer{};
    for (;;) {
        const ssize_t count = ::read(file.get(), buffer.data(), buffer.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return std::nullopt;
        if (count == 0)
            return bytes;
        bytes.append(buffer.data(), static_cast<std::size_t>(count));
    }
}

} // namespace orbisgrid
