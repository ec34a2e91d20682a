#pragma once

#include <unistd.h>

#include <optional>
#include <string>
#include <utility>

namespace orbisgrid {

/// Owns a descriptor of the operating system and closes it. -1 means none.
class FileDescriptor {
public:
    FileDescriptor() = default;

    explicit FileDescriptor(int descriptor)
        : m_descriptor(descriptor) {}

    FileDescriptor(FileDescriptor&& other) noexcept
        : m_descriptor(std::exchange(other.m_descriptor, -1)) {}

    FileDescriptor& operator=(FileDescriptor&& other) noexcept {
        std::swap(m_descriptor, other.m_descriptor);
        return *this;
    }

    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;

    ~FileDescriptor() { close(); }

    explicit operator bool() const { return m_descriptor >= 0; }

    int get() const { return m_descriptor; }

    /// Closes before the end of its life. Result: false when the system reports a failure, which on
    /// some file systems is the first word of a write that did not reach its disk.
    bool close() { return m_descriptor < 0 || ::close(std::exchange(m_descriptor, -1)) == 0; }

private:
    int m_descriptor = -1;
};

/// Fills the places of standard input, output and error that the starter has left closed, so that
/// no file that is opened later takes one of them: messages would be written into it. Reading from
/// the first then fails, writing to the others too.
void occupyStandardDescriptors();

/// Everything that is left to read; nothing where that fails.
std::optional<std::string> readToEnd(const FileDescriptor& file);

} // namespace orbisgrid
