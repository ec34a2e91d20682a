#pragma once

#include "records/record_window.h"

#include <string>

namespace orbisgrid {

/// Rows of fields between separators (RFC 4180): a comma in csv, a tab in tsv. A field in double
/// quotes may hold separators and line ends; a quote in it is doubled. Quotes elsewhere are
/// characters like others, and what stands between a closing quote and the separator belongs to the
/// field. The first row is the header and passes through, as empty lines do.
class CsvReader : public RecordReader {
public:
    CsvReader(RecordWindow& window, char separator)
        : m_window(window)
        , m_separator(separator) {}

    /// The fields of the header are there too.
    Reading next(Record& record) override;

    char separator() const { return m_separator; }

private:
    RecordWindow& m_window;
    char m_separator;
    bool m_isHeaderRead = false;
};

/// Whether the quotes of a field close, if it has any. Only a file's last row may have one whose
/// quotes do not; nothing can be put behind it.
[[nodiscard]] bool isClosed(const Field& field);

/// Puts what a field stands for behind `text`: of a field in quotes its doubled quotes are single.
void appendUnquoted(std::string& text, const Field& field);

} // namespace orbisgrid
