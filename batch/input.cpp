#include "batch/input.h"

#include "platform/byte_stream.h"

namespace orbisgrid {

namespace {

constexpr int standardInput = 0;

} // namespace

FileSource::FileSource(const std::string& name)
    : m_file(name == "-" ? FileDescriptor(standardInput) : openToRead(name)) {}

std::optional<std::size_t> FileSource::read(std::span<char> room) {
    return readNext(m_file, room);
}

std::optional<std::uint64_t> totalOf(const std::vector<std::string>& names) {
    std::uint64_t total{};
    for (const std::string& name : names) {
        // Its own descriptor: the one of the standard input is needed again.
        const FileDescriptor file = openToRead(name == "-" ? "/dev/stdin" : name);
        const auto size = file ? sizeOf(file) : std::nullopt;
        if (!size)
            return std::nullopt;
        total += *size;
    }
    return total;
}

} // namespace orbisgrid
