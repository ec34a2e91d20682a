#include "batch/output.h"

#include "platform/byte_stream.h"

#include <cerrno>

namespace orbisgrid {

int StreamSink::write(std::string_view bytes) {
    return writeNext(m_stream, bytes) ? 0 : errno;
}

int StreamSink::finish() {
    return m_stream.close() ? 0 : errno;
}

int FileSink::write(std::string_view bytes) {
    return m_file.write(bytes) ? 0 : m_file.error();
}

int FileSink::finish() {
    return m_file.finish() ? 0 : m_file.error();
}

} // namespace orbisgrid
