#pragma once

#include "platform/file_descriptor.h"
#include "platform/safe_file.h"

#include <string>
#include <string_view>

namespace orbisgrid {

/// Where bytes go.
class ByteSink {
public:
    ByteSink() = default;
    ByteSink(const ByteSink&) = delete;
    ByteSink& operator=(const ByteSink&) = delete;
    virtual ~ByteSink() = default;

    /// Result: 0, or the system's number for why that cannot be done.
    virtual int write(std::string_view bytes) = 0;

    /// To be called once, behind the last write. Result: likewise.
    virtual int finish() { return 0; }
};

/// A stream that is open already.
class StreamSink : public ByteSink {
public:
    explicit StreamSink(int descriptor)
        : m_stream(descriptor) {}

    int write(std::string_view bytes) override;

    /// Closes it, as some disks say only then that they are full.
    int finish() override;

    const FileDescriptor& stream() const { return m_stream; }

private:
    FileDescriptor m_stream;
};

/// A file that holds the new content when all of it is there, and its old one until then.
class FileSink : public ByteSink {
public:
    explicit FileSink(const std::string& path)
        : m_file(path) {}

    /// 0, or why nothing can be written.
    int error() const { return m_file.error(); }

    int write(std::string_view bytes) override;
    int finish() override;

private:
    FileReplacement m_file;
};

} // namespace orbisgrid
