#include "settings/store_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>

namespace orbisgrid {

using namespace std::string_view_literals;

namespace {

constexpr std::string_view blanks = " \t\r";

std::string_view trimmedBytes(std::string_view bytes) {
    const std::size_t first = bytes.find_first_not_of(blanks);
    if (first == std::string_view::npos)
        return {};
    return bytes.substr(first, bytes.find_last_not_of(blanks) - first + 1);
}

/// One line of the file, where it begins and ends (its line feed not counted).
struct Line {
    std::size_t begin{};
    std::size_t end{};
};

std::vector<Line> linesOf(std::string_view content) {
    std::vector<Line> lines;
    for (std::size_t begin = 0; begin < content.size();) {
        const std::size_t end = std::min(content.find('\n', begin), content.size());
        lines.push_back({begin, end});
        begin = end + 1;
    }
    return lines;
}

/// Where a setting of the program's section stands.
struct Place {
    std::optional<Line> line;   ///< the key's own line
    std::size_t endOfSection{}; ///< behind the section's last line with something in it
    bool hasSection = false;
};

Place placeOf(std::string_view content, TextView key) {
    const std::string wanted = toUtf8(key);
    const std::string section = '[' + toUtf8(settingsSection) + ']';
    Place place;
    bool isInside = false;
    for (const Line& line : linesOf(content)) {
        const std::string_view text =
            trimmedBytes(content.substr(line.begin, line.end - line.begin));
        if (text.starts_with('['))
            isInside = text == section;
        if (!isInside || text.empty())
            continue;
        place.hasSection = true;
        place.endOfSection = std::min(line.end + 1, content.size());
        const std::size_t equals = text.find('=');
        if (equals != std::string_view::npos && trimmedBytes(text.substr(0, equals)) == wanted)
            place.line = line;
    }
    return place;
}

// Reading a value -------------------------------------------------------------------------------

/// The character of a one-letter escape such as \n; the letter itself where it has no meaning.
char unescaped(char letter) {
    constexpr std::string_view letters = "abfnrtv0";
    constexpr std::string_view meanings = "\a\b\f\n\r\t\v\0"sv;
    const std::size_t found = letters.find(letter);
    return found == std::string_view::npos ? letter : meanings[found];
}

/// Reads the digits behind \x and moves past them. Result: the code unit.
char16_t hexadecimalEscape(std::string_view value, std::size_t& next) {
    const char* begin = value.data() + next;
    unsigned code = 0;
    const auto result = std::from_chars(begin, value.data() + value.size(), code, 16);
    next += static_cast<std::size_t>(result.ptr - begin);
    return static_cast<char16_t>(code);
}

Text valueText(std::string_view value) {
    Text text;
    std::string bytes; // of the characters since the last escape
    const auto takeBytes = [&] {
        text += fromUtf8(bytes);
        bytes.clear();
    };
    for (std::size_t i = 0; i < value.size();) {
        const char character = value[i++];
        if (character == '"')
            continue;
        if (character != '\\' || i == value.size()) {
            bytes += character;
        } else if (value[i] == 'x') {
            takeBytes();
            text += hexadecimalEscape(value, ++i);
        } else {
            bytes += unescaped(value[i++]);
        }
    }
    takeBytes();
    // A first "@" would announce something else than a text; doubled, it is one.
    return text.starts_with(u"@@") ? text.substr(1) : text;
}

// Writing a value -------------------------------------------------------------------------------

bool isHexadecimalDigit(char c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

void appendHexadecimal(std::string& bytes, std::uint8_t code) {
    std::array<char, 8> digits{};
    const auto result = std::to_chars(digits.begin(), digits.end(), unsigned{code}, 16);
    bytes += "\\x";
    bytes.append(digits.begin(), result.ptr);
}

/// What needs an escape is ASCII; the bytes of other characters in UTF-8 stay as they are.
std::string escapedValue(std::string_view value) {
    std::string bytes;
    bool isBehindHexadecimal = false;
    for (const char c : value) {
        const auto code = static_cast<std::uint8_t>(c);
        const bool isControl = code < 0x20 || code == 0x7F;
        // A digit behind a hexadecimal escape would be read as part of it.
        const bool needsHexadecimal = isControl || (isBehindHexadecimal && isHexadecimalDigit(c));
        isBehindHexadecimal = needsHexadecimal;
        if (needsHexadecimal) {
            appendHexadecimal(bytes, code);
        } else {
            if (c == '"' || c == '\\')
                bytes += '\\';
            bytes += c;
        }
    }
    return bytes;
}

std::string valueBytes(TextView value) {
    std::string bytes = escapedValue(toUtf8(value));
    if (value.starts_with(u'@'))
        bytes = '@' + bytes;
    const bool needsQuotes = value.find_first_of(u";,=") != TextView::npos ||
                             value.starts_with(u' ') || value.ends_with(u' ');
    if (needsQuotes) {
        bytes.insert(0, 1, '"');
        bytes += '"';
    }
    return bytes;
}

void setValue(std::string& content, const Setting& setting) {
    const std::string line = toUtf8(setting.key) + '=' + valueBytes(setting.value);
    const Place place = placeOf(content, setting.key);
    if (place.line) {
        content.replace(place.line->begin, place.line->end - place.line->begin, line);
        return;
    }
    const auto isOpen = [&](std::size_t end) { return end > 0 && content[end - 1] != '\n'; };
    std::string addition = line + '\n';
    std::size_t where = place.endOfSection;
    if (!place.hasSection) {
        where = content.size();
        addition.insert(0, '[' + toUtf8(settingsSection) + "]\n");
        if (!content.empty())
            addition.insert(0, 1, '\n');
    }
    if (isOpen(where))
        addition.insert(0, 1, '\n');
    content.insert(where, addition);
}

} // namespace

std::optional<Text> storedValue(std::string_view content, TextView key) {
    const Place place = placeOf(content, key);
    if (!place.line)
        return std::nullopt;
    const std::string_view line =
        content.substr(place.line->begin, place.line->end - place.line->begin);
    return valueText(trimmedBytes(line.substr(line.find('=') + 1)));
}

std::string withStoredValues(std::string_view content, const std::vector<Setting>& settings) {
    std::string result(content);
    for (const Setting& setting : settings)
        setValue(result, setting);
    return result;
}

} // namespace orbisgrid
