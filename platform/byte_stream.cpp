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

std::optional<std::uint64_t> sizeOfFile(const std::string& path) {
    struct stat status = {};

    if (::stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    return static_cast<std::uint64_t>(status.st_size);
}

bool isSameFile(const std::string& path, const FileDescriptor& file) {
    struct stat one = {}, other = {};

    return ::fstat(file.get(), &other) == 0 && S_ISREG(other.st_mode) &&
           ::stat(path.c_str(), &one) == 0 && one.st_dev == other.st_dev &&
           one.st_ino == other.st_ino;
}

bool isTerminal(const FileDescriptor& file) {
    return ::isatty(file.get()) == 1;
}

std::string reasonOf(int error) {
    return std::system_category().message(error);
}

} // namespace orbisgrid
