#include "batch/message_text.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace orbisgrid {

std::string printable(std::string_view text) {
    std::string line(text);
    std::replace_if(
        line.begin(), line.end(),
        [](char byte) { return (byte >= 0 && byte < ' ') || byte == '\x7F'; }, '?');
    // The control characters beyond ASCII, as UTF-8 has them.
    for (std::size_t at = line.find('\xC2'); at != std::string::npos;
         at = line.find('\xC2', at + 1)) {
        // Behind a text stands a zero.
        if ((static_cast<std::uint8_t>(line[at + 1]) & 0xE0U) == 0x80)
            line.replace(at, 2, "?");
    }
    return line;
}

std::string shortened(std::string_view text) {
    constexpr std::size_t most = 60;
    if (text.size() <= most)
        return printable(text);
    std::size_t end = most;
    while (end > most - 3 && (static_cast<std::uint8_t>(text[end]) & 0xC0U) == 0x80)
        --end; // not within a character of UTF-8
    return printable(text.substr(0, end)) + "...";
}

} // namespace orbisgrid
