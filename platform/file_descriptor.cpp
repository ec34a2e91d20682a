#include "platform/file_descriptor.h"

#include <fcntl.h>

#include <array>
#include <cerrno>
#include <tuple>

namespace orbisgrid {

void occupyStandardDescriptors() {
    for (const int standard : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        const int unusable = standard == STDIN_FILENO ? O_WRONLY : O_RDONLY;
        // The lowest number that is free is what a file gets, and all below are taken.
        if (::fcntl(standard, F_GETFD) < 0)
            std::ignore = ::open("/dev/null", unusable);
    }
}

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
