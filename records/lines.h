#pragma once

#include "records/record_window.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace orbisgrid {

/// One line a record. Empty lines and those whose first character is "#" pass through. A line ends
/// with LF or CR LF, the last one with the file too.
class LineReader : public RecordReader {
public:
    explicit LineReader(RecordWindow& window)
        : m_window(window) {}

    Reading next(Record& record) override;

private:
    RecordWindow& m_window;
};

/// How long the line is that `bytes` begin with, its end included; nothing where more bytes decide.
[[nodiscard]] std::optional<std::size_t> endOfLine(std::string_view bytes, bool isWhole);

/// A line of a file without its end: LF or CR LF, or CR alone where the file ends with it.
[[nodiscard]] std::string_view withoutLineEnd(std::string_view line);

/// `text` without the blanks and tabs around it.
[[nodiscard]] std::string_view withoutBlanks(std::string_view text);

/// The words of a line, which blanks, tabs or one comma separate.
struct Words {
    std::array<std::string_view, 2> first; ///< the first two
    std::size_t count = 0;                 ///< of all
};

[[nodiscard]] Words wordsOf(std::string_view line);

} // namespace orbisgrid
