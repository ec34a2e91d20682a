#include "records/json.h"

#include "core/text.h"

#include <algorithm>

namespace orbisgrid {

namespace {

/// Inside a text these are written in another way.
bool isEscaped(char byte) {
    return byte == '"' || byte == '\\' || (byte >= 0 && byte < ' ');
}

void appendEscaped(std::string& bytes, char byte) {
    bytes += '\\';
    switch (byte) {
    case '\n':
        bytes += 'n';
        break;
    case '\r':
        bytes += 'r';
        break;
    case '\t':
        bytes += 't';
        break;
    case '"':
    case '\\':
        bytes += byte;
        break;
    default:
        bytes += "u00";
        bytes += byte >= 16 ? '1' : '0';
        bytes += "0123456789abcdef"[byte % 16];
    }
}

} // namespace

std::string MemberNames::take(std::string_view name) {
    std::string free(name);
    for (int number = 2; !m_taken.insert(free).second; ++number)
        free.assign(name).append("_").append(std::to_string(number));
    return free;
}

// NOLINTNEXTLINE(bugprone-easily-swappable-parameters): in the order in which they are written
void JsonLine::addText(std::string_view key, std::string_view value) {
    addKey(key);
    addString(value);
}

// NOLINTNEXTLINE(bugprone-easily-swappable-parameters): in the order in which they are written
void JsonLine::addNumber(std::string_view key, std::string_view value) {
    addKey(key);
    m_bytes += value.empty() ? "null" : value;
}

void JsonLine::end() {
    m_bytes += m_isFirst ? "{}\n" : "}\n";
}

void JsonLine::addKey(std::string_view key) {
    m_bytes += m_isFirst ? '{' : ',';
    m_isFirst = false;
    addString(key);
    m_bytes += ':';
}

void JsonLine::addString(std::string_view value) {
    const bool isAscii =
        std::all_of(value.begin(), value.end(), [](char byte) { return byte >= 0; });
    const std::string decoded = isAscii ? std::string() : toUtf8(fromFileBytes(value));
    m_bytes += '"';
    for (const char byte : isAscii ? value : std::string_view(decoded)) {
        if (isEscaped(byte))
            appendEscaped(m_bytes, byte);
        else
            m_bytes += byte;
    }
    m_bytes += '"';
}

} // namespace orbisgrid
