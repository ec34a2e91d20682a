#include "records/lines.h"

namespace orbisgrid {

namespace {

constexpr std::string_view blanks = " \t";

} // namespace

std::string_view withoutLineEnd(std::string_view line) {
    if (line.ends_with('\n'))
        line.remove_suffix(1);
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    return line;
}

std::string_view withoutBlanks(std::string_view text) {
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(blanks) + 1 - first);
}

Words wordsOf(std::string_view line) {
    Words words;
    std::string_view rest = withoutBlanks(line);
    bool isBehindComma = false;
    while (!rest.empty() || isBehindComma) {
        const std::size_t end = rest.find_first_of(" \t,");
        const std::string_view word = rest.substr(0, end);
        if (words.count < words.first.size())
            words.first.at(words.count) = word;
        ++words.count;
        rest = withoutBlanks(rest.substr(word.size()));
        isBehindComma = rest.starts_with(',');
        if (isBehindComma)
            rest = withoutBlanks(rest.substr(1));
    }
    return words;
}

std::optional<std::size_t> endOfLine(std::string_view bytes, bool isWhole) {
    const std::size_t end = bytes.find('\n');
    if (end != std::string_view::npos)
        return end + 1;
    return isWhole ? std::optional(bytes.size()) : std::nullopt;
}

Reading LineReader::next(Record& record) {
    const Reading reading = takeRecord(m_window, record, endOfLine);
    if (reading == Reading::record) {
        record.content = withoutLineEnd(record.content);
        const std::string_view text = withoutBlanks(record.content);
        record.isData = !text.empty() && !text.starts_with('#');
    }
    return reading;
}

} // namespace orbisgrid
