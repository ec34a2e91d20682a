#pragma once

#include "records/byte_source.h"
#include "records/record.h"

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace orbisgrid {

/// Bytes; no record of a log comes near it. What is longer is no record, and would take the memory.
inline constexpr std::size_t longestRecord = std::size_t{2} << 20U;

/// The part of a file that a reader looks at: from the first byte of its next record as far as the
/// file has been read. Its size grows with the longest record, not with the file.
class RecordWindow {
public:
    explicit RecordWindow(ByteSource& source)
        : m_source(source) {}

    /// What has been read and not yet taken. Valid until the next `fetch`.
    std::string_view bytes() const { return {m_buffer.data() + m_begin, m_end - m_begin}; }

    /// Whether the file ends with `bytes`.
    bool isWhole() const { return m_isWhole; }

    /// How many of `bytes` are the mark that some programs begin a file of UTF-8 with; none but at
    /// the start of the file.
    std::size_t markLength() const;

    /// The number of the line that `bytes` begin in, from 1.
    std::size_t line() const { return m_line; }

    /// Reads more behind `bytes`, or finds that there is no more. Result: nothing, or why that
    /// cannot be: tooLong, unreadable.
    std::optional<Reading> fetch();

    /// Fetches until there are `count` bytes or all of the file. Result: as that of `fetch`.
    std::optional<Reading> fetchUntil(std::size_t count);

    /// Takes the first bytes out.
    void take(std::size_t count);

private:
    void makeRoom();

    ByteSource& m_source;
    std::vector<char> m_buffer;
    std::size_t m_block = 0; ///< how much is read at a time
    std::size_t m_begin = 0;
    std::size_t m_end = 0;
    std::size_t m_line = 1;
    bool m_isAtStart = true;
    bool m_isWhole = false;
};

/// Calls `find` until it finds the end of the record that the window begins with, and takes the
/// record out; its content is all of it but the mark. `find` gets the bytes behind the mark and
/// whether the file ends with them; it gives the length of the record, or nothing where only more
/// bytes can decide that.
template <typename Find>
Reading takeRecord(RecordWindow& window, Record& record, Find find) {
    record.line = window.line();
    for (;;) {
        if (window.isWhole() && window.bytes().empty())
            return Reading::end;
        if (!window.bytes().empty()) {
            const std::size_t mark = window.markLength();
            const std::optional<std::size_t> length =
                find(window.bytes().substr(mark), window.isWhole());
            if (length) {
                record.bytes = window.bytes().substr(0, mark + *length);
                record.content = record.bytes.substr(mark);
                window.take(record.bytes.size());
                return Reading::record;
            }
        }
        if (const auto failure = window.fetch())
            return *failure;
    }
}

} // namespace orbisgrid
