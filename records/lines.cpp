#include "records/lines.h"

namespace orbisgrid {

namespace {

// By hand, as these texts are a few characters long: a search of the library's is a call for each.
bool isBlank(char character) {
    return character == ' ' || character == '\t';
}

/// The word that `text` begins with.
std::string_view firstWord(std::string_view text) {
    std::size_t size = 0;
    while (size < text.size() && !isBlank(text[size]) && text[size] != ',')
        ++size;
    return text.substr(0, size);
}

} // namespace

std::string_view withoutLineEnd(std::string_view line) {
    if (line.ends_with('\n'))
        line.remove_suffix(1);
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    return line;
}

std::string_view withoutBlanks(std::string_view text) {
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

Words wordsOf(std::string_view line) {
    Words words;
    std::string_view rest = withoutBlanks(line);
    bool isBehindComma = false;
    while (!rest.empty() || isBehindComma) {
        const std::string_view word = firstWord(rest);
        if (words.count < words.first.size())
            words.first[words.count] = word;
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
