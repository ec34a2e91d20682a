#pragma once

#include <string>

namespace orbisgrid::test {

/// The bytes of pairs of hexadecimal digits; blanks between them are for the reader.
inline std::string bytesOfHexadecimal(const std::string& text) {
    std::string digits;
    for (const char character : text) {
        if (character != ' ')
            digits += character;
    }
    std::string bytes;
    for (std::size_t i = 0; i < digits.size(); i += 2)
        bytes += static_cast<char>(std::stoi(digits.substr(i, 2), nullptr, 16));
    return bytes;
}

} // namespace orbisgrid::test
