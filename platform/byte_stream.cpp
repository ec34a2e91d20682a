#include "platform/byte_stream.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace orbisgrid {

FileDescriptor openToRead(const std::string& path) {
    return FileDescriptor(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
}

std::optional<std::size_t> readNext(const FileDescriptor& file, std::span<char> room) {
    for (;;) {
        const ssize_t count = ::read(file.get(), room.data(), room.size());
        if (count >= 0)
            return static_cast<std::size_t>(count);
        if (errno != EINTR)
            return std::nullopt;
    }
}

bool writeNext(const FileDescriptor& file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(file.get(), bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written < 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

std::optional<std::uint64_t> sizeOf(const FileDescriptor& file) {
    struct stat status = {};

    if (::fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    return static_cast<std::uint64_t>(status.st_size);
}

bool isTerminal(const FileDescriptor& file) {
    return ::isatty(file.get()) == 1;
}

std::string reasonOf(int error) {
    return std::system_category().message(error);
}

} // namespace orbisgrid
