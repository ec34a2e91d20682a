#include "records/format.h"

#include "records/adif.h"
#include "records/csv.h"
#include "records/lines.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

namespace orbisgrid {

namespace {

constexpr std::array<std::pair<Format, std::string_view>, 5> names{{{Format::lines, "lines"},
                                                                    {Format::csv, "csv"},
                                                                    {Format::tsv, "tsv"},
                                                                    {Format::adif, "adif"},
                                                                    {Format::json, "json"}}};

constexpr std::array<std::pair<std::string_view, Format>, 4> endings{{{".csv", Format::csv},
                                                                      {".tsv", Format::tsv},
                                                                      {".adi", Format::adif},
                                                                      {".adif", Format::adif}}};

char small(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a')
                                                : character;
}

bool isSame(std::string_view one, std::string_view other) {
    return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                      [](char left, char right) { return small(left) == small(right); });
}

/// The bytes, read once from the beginning.
class Bytes : public ByteSource {
public:
    explicit Bytes(std::string_view bytes)
        : m_bytes(bytes) {}

    std::optional<std::size_t> read(std::span<char> room) override {
        const std::size_t count = std::min(room.size(), m_bytes.size());
        std::copy_n(m_bytes.begin(), count, room.begin());
        m_bytes.remove_prefix(count);
        return count;
    }

private:
    std::string_view m_bytes;
};

/// Whether a byte may stand in a position of numbers: the signs of degrees, minutes and seconds are
/// beyond ASCII, or quotes.
bool isOfNumbers(char byte) {
    constexpr std::string_view others = "0123456789.,;:+-'\"/NSEWnsew \t\r\n";
    return static_cast<unsigned char>(byte) >= 0x80 || others.find(byte) != std::string_view::npos;
}

/// Two letters and two digits in turns, four characters at least.
bool isShapedAsLocator(std::string_view word) {
    const auto isLetter = [](char byte) { return small(byte) >= 'a' && small(byte) <= 'z'; };
    const auto isDigit = [](char byte) { return byte >= '0' && byte <= '9'; };
    for (std::size_t i = 0; i < word.size(); ++i) {
        if (i % 4 < 2 ? !isLetter(word[i]) : !isDigit(word[i]))
            return false;
    }
    return word.size() >= 4;
}

/// Whether the first row of the table that `bytes` would be names one of the columns.
bool isTable(std::string_view bytes, char separator, std::span<const std::string_view> columns) {
    Bytes source(bytes);
    RecordWindow window(source);
    CsvReader reader(window, separator);
    Record record;
    if (reader.next(record) != Reading::record)
        return false;
    return std::any_of(record.fields.begin(), record.fields.end(), [&](const Field& field) {
        // Quotes stand around all of it, or another separator follows them.
        const bool isWhole = field.bytes.size() <= field.value.size() + 2;
        return isWhole && std::any_of(columns.begin(), columns.end(), [&](std::string_view column) {
                   return isColumn(field.value, column);
               });
    });
}

} // namespace

std::string_view nameOf(Format format) {
    return names.at(static_cast<std::size_t>(format)).second;
}

std::optional<Format> formatNamed(std::string_view name) {
    for (const auto& [format, itsName] : names) {
        if (name == itsName)
            return format;
    }
    return std::nullopt;
}

std::optional<Format> formatOfFile(std::string_view path) {
    for (const auto& [ending, format] : endings) {
        if (path.size() > ending.size() && isSame(path.substr(path.size() - ending.size()), ending))
            return format;
    }
    return std::nullopt;
}

Format guessedFormat(std::string_view bytes, std::span<const std::string_view> columns) {
    if (isTable(bytes, ',', columns))
        return Format::csv;
    if (isTable(bytes, '\t', columns))
        return Format::tsv;
    return holdsAdif(bytes) ? Format::adif : Format::lines;
}

bool beginsWithPlace(std::string_view line) {
    constexpr std::string_view digits = "0123456789";
    const std::string_view text = withoutBlanks(line);
    if (text.empty())
        return false;
    if (text.front() == '=')
        return true; // a UI-View text
    if (digits.find(text.front()) != std::string_view::npos || text.find_first_of("+-") == 0)
        return std::all_of(text.begin(), text.end(), isOfNumbers);
    return isShapedAsLocator(text.substr(0, text.find_first_of(" \t,")));
}

bool isColumn(std::string_view field, std::string_view name) {
    return isSame(withoutBlanks(field), name);
}

} // namespace orbisgrid
