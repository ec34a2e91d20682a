#include "batch/input.h"

#include "platform/byte_stream.h"

#include <algorithm>

namespace orbisgrid {

namespace {

constexpr int standardInput = 0;

std::string pathOf(const std::string& name) {
    if (name == "-")
        return "/dev/stdin";
    return name;
}

} // namespace

FileSource::FileSource(const std::string& name)
    : m_file(name == "-" ? FileDescriptor(standardInput) : openToRead(name)) {}

std::optional<std::size_t> FileSource::read(std::span<char> room) {
    return readNext(m_file, room);
}

std::optional<std::uint64_t> totalOf(const std::vector<std::string>& names) {
    std::uint64_t total{};
    for (const std::string& name : names) {
        const auto size = sizeOfFile(pathOf(name));
        if (!size)
            return std::nullopt;
        total += *size;
    }
    return total;
}

std::optional<std::string> fileThatIs(const FileDescriptor& output,
                                      const std::vector<std::string>& names) {
    const auto found = std::find_if(names.begin(), names.end(), [&](const std::string& name) {
        return isSameFile(pathOf(name), output);
    });
    return found == names.end() ? std::nullopt : std::optional(*found);
}

} // namespace orbisgrid
