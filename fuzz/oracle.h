#pragma once

#include "core/text.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <vector>

/// What libFuzzer and the replay program call with each input.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace orbisgrid::fuzz {

/// Ends the program where the two sides of a comparison differ.
inline void require(bool isSo, const char* what) {
    if (isSo)
        return;
    std::fprintf(stderr, "differs: %s\n", what);
    std::abort();
}

inline std::string_view bytesOf(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size}; // the same bytes as characters
}

/// The input as texts, one for each line.
inline std::vector<Text> linesOf(const std::uint8_t* data, std::size_t size) {
    std::vector<Text> lines{Text()};
    for (const char16_t character : fromUtf8(bytesOf(data, size))) {
        if (character == u'\n')
            lines.emplace_back();
        else
            lines.back() += character;
    }
    return lines;
}

} // namespace orbisgrid::fuzz
