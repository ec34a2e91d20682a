#include "records/csv.h"

#include "records/lines.h"

#include <optional>

namespace orbisgrid {

namespace {

constexpr char quote = '"';
constexpr std::size_t none = std::string_view::npos;

bool isQuoted(std::string_view field) {
    return field.starts_with(quote);
}

/// Where the quotes around a field close: the place behind the second one. `from` is that behind
/// the first. Nothing where they do not close in `bytes`. (Where `bytes` end with the second one,
/// and another would follow that makes it a character, the row does not end there either.)
std::optional<std::size_t> endOfQuotes(std::string_view bytes, std::size_t from) {
    for (;;) {
        const std::size_t found = bytes.find(quote, from);
        if (found == none)
            return std::nullopt;
        if (!bytes.substr(found + 1).starts_with(quote))
            return found + 1;
        from = found + 2;
    }
}

/// Where the line ends that holds the end of the row, its end included.
std::optional<std::size_t> endOfRow(std::string_view bytes, bool isWhole, char separator) {
    std::size_t at = 0;
    for (;;) {
        // The quick way: no field of what is left of this line begins with a quote.
        const auto end = endOfLine(bytes.substr(at), isWhole);
        const std::size_t lineEnd = at + end.value_or(bytes.size() - at);
        std::size_t opening = bytes.substr(0, lineEnd).find(quote, at);
        while (opening != none && opening != at && bytes[opening - 1] != separator)
            opening = bytes.substr(0, lineEnd).find(quote, opening + 1);
        if (opening == none)
            return end ? std::optional(lineEnd) : std::nullopt;
        const auto closing = endOfQuotes(bytes, opening + 1);
        if (!closing)
            return isWhole ? std::optional(bytes.size()) : std::nullopt;
        at = *closing;
    }
}

/// The field that `row` begins with.
std::string_view firstField(std::string_view row, char separator) {
    std::size_t from = 0;
    if (isQuoted(row))
        from = endOfQuotes(row, 1).value_or(row.size());
    return row.substr(0, row.find(separator, from));
}

/// Without the quotes around it, and what stands behind them.
std::string_view valueOf(std::string_view field) {
    if (!isQuoted(field))
        return field;
    const auto end = endOfQuotes(field, 1);
    return end ? field.substr(1, *end - 2) : field.substr(1);
}

void splitRow(Record& record, char separator) {
    record.fields.clear();
    std::string_view rest = record.content;
    for (;;) {
        const std::string_view field = firstField(rest, separator);
        record.fields.push_back({{}, valueOf(field), field});
        if (field.size() == rest.size())
            return;
        rest.remove_prefix(field.size() + 1);
    }
}

} // namespace

Reading CsvReader::next(Record& record) {
    const Reading reading =
        takeRecord(m_window, record, [this](std::string_view bytes, bool isWhole) {
            return endOfRow(bytes, isWhole, m_separator);
        });
    if (reading == Reading::record) {
        record.content = withoutLineEnd(record.content);
        splitRow(record, m_separator);
        const bool isEmpty = record.content.empty();
        record.isData = m_isHeaderRead && !isEmpty;
        m_isHeaderRead = m_isHeaderRead || !isEmpty;
    }
    return reading;
}

bool isClosed(const Field& field) {
    return !isQuoted(field.bytes) || endOfQuotes(field.bytes, 1);
}

void appendUnquoted(std::string& text, const Field& field) {
    std::string_view rest = field.value;
    if (isQuoted(field.bytes)) {
        for (std::size_t at = rest.find("\"\""); at != none; at = rest.find("\"\"")) {
            text.append(rest.substr(0, at + 1));
            rest.remove_prefix(at + 2);
        }
    }
    text.append(rest);
}

} // namespace orbisgrid
