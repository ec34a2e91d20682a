#include "core/text.h"

#include <array>
#include <cstdint>

namespace orbisgrid {

namespace {

constexpr char16_t blank = u' ';
constexpr char16_t replacement = 0xFFFD;

/// One Unicode scalar value read from UTF-8, and how many bytes it took.
struct Utf8Character {
    char32_t code = 0;
    std::size_t length = 0; // 0: these bytes are no UTF-8
};

std::size_t sequenceLength(std::uint8_t lead) {
    if (lead < 0x80)
        return 1;
    if (lead >= 0xC2 && lead <= 0xDF)
        return 2;
    if (lead >= 0xE0 && lead <= 0xEF)
        return 3;
    return lead >= 0xF0 && lead <= 0xF4 ? 4 : 0;
}

bool isScalarInShortestForm(char32_t code, std::size_t length) {
    constexpr std::array<char32_t, 5> smallest{0, 0, 0x80, 0x800, 0x10000};
    const bool isSurrogate = code >= 0xD800 && code <= 0xDFFF;
    return code >= smallest.at(length) && code <= 0x10FFFF && !isSurrogate;
}

Utf8Character decodeUtf8(std::string_view bytes) {
    const auto lead = static_cast<std::uint8_t>(bytes.front());
    const std::size_t length = sequenceLength(lead);
    if (length == 0 || length > bytes.size())
        return {};
    if (length == 1)
        return {lead, 1};
    char32_t code = lead & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        const auto next = static_cast<std::uint8_t>(bytes[i]);
        if ((next & 0xC0U) != 0x80)
            return {};
        code = (code << 6U) | (next & 0x3FU);
    }
    if (!isScalarInShortestForm(code, length))
        return {};
    return {code, length};
}

void appendUtf16(Text& text, char32_t code) {
    if (code < 0x10000) {
        text += static_cast<char16_t>(code);
        return;
    }
    const char32_t offset = code - 0x10000;
    text += static_cast<char16_t>(0xD800 + (offset >> 10U));
    text += static_cast<char16_t>(0xDC00 + (offset & 0x3FFU));
}

void appendUtf8(std::string& bytes, char32_t code) {
    const auto tail = [&](unsigned shift) {
        bytes += static_cast<char>(0x80U | ((code >> shift) & 0x3FU));
    };
    if (code < 0x80) {
        bytes += static_cast<char>(code);
    } else if (code < 0x800) {
        bytes += static_cast<char>(0xC0U | (code >> 6U));
        tail(0);
    } else if (code < 0x10000) {
        bytes += static_cast<char>(0xE0U | (code >> 12U));
        tail(6);
        tail(0);
    } else {
        bytes += static_cast<char>(0xF0U | (code >> 18U));
        tail(12);
        tail(6);
        tail(0);
    }
}

/// Decodes as far as the bytes are UTF-8; a byte that is not goes to `onBadByte`, which says
/// whether to go on.
template <typename OnBadByte>
Text decodeEach(std::string_view bytes, OnBadByte onBadByte) {
    Text text;
    text.reserve(bytes.size());
    while (!bytes.empty()) {
        const Utf8Character character = decodeUtf8(bytes);
        if (character.length == 0) {
            if (!onBadByte(text))
                break;
            bytes.remove_prefix(1);
        } else {
            appendUtf16(text, character.code);
            bytes.remove_prefix(character.length);
        }
    }
    return text;
}

/// Windows-1252 at 0x80 to 0x9F; elsewhere it is Latin-1. Source: the code page's published table.
constexpr std::array<char16_t, 32> windows1252{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

Text fromWindows1252(std::string_view bytes) {
    Text text;
    text.reserve(bytes.size());
    for (const char byte : bytes) {
        const auto code = static_cast<std::uint8_t>(byte);
        text += code >= 0x80 && code < 0xA0 ? windows1252.at(code - 0x80U) : char16_t{code};
    }
    return text;
}

char16_t upperLatin(char16_t c) {
    if ((c >= u'a' && c <= u'z') || (c >= 0xE0 && c <= 0xFE && c != 0xF7))
        return static_cast<char16_t>(c - 32);
    if (c == 0xFF)
        return 0x178;
    // Extended-A pairs its letters, upper case on the even code or, in two stretches, on the odd
    // one. 0x130 and 0x131 (dotted and dotless i) are no pair.
    if ((c >= 0x100 && c <= 0x12F) || (c >= 0x132 && c <= 0x137) || (c >= 0x14A && c <= 0x177))
        return static_cast<char16_t>(c & ~1U);
    if ((c >= 0x139 && c <= 0x148) || (c >= 0x179 && c <= 0x17E))
        return static_cast<char16_t>(c - (c % 2 == 0 ? 1 : 0));
    return c;
}

char16_t upperGreek(char16_t c) {
    if ((c >= 0x3B1 && c <= 0x3CB) && c != 0x3C2)
        return static_cast<char16_t>(c - 32);
    switch (c) {
    case 0x3AC:
        return 0x386;
    case 0x3AD:
    case 0x3AE:
    case 0x3AF:
        return static_cast<char16_t>(c - 37);
    case 0x3C2: // final sigma
        return 0x3A3;
    case 0x3CC:
        return 0x38C;
    case 0x3CD:
    case 0x3CE:
        return static_cast<char16_t>(c - 63);
    default:
        return c;
    }
}

char16_t upperCyrillic(char16_t c) {
    if (c >= 0x430 && c <= 0x44F)
        return static_cast<char16_t>(c - 32);
    if (c >= 0x450 && c <= 0x45F)
        return static_cast<char16_t>(c - 80);
    return c;
}

} // namespace

TextView trimmed(TextView text) {
    text = withoutLeadingBlanks(text);
    const std::size_t last = text.find_last_not_of(blank);
    return last == TextView::npos ? TextView{} : text.substr(0, last + 1);
}

TextView withoutLeadingBlanks(TextView text) {
    const std::size_t first = text.find_first_not_of(blank);
    return first == TextView::npos ? TextView{} : text.substr(first);
}

char16_t upperCase(char16_t character) {
    if (character < 0x180)
        return upperLatin(character);
    if (character < 0x400)
        return upperGreek(character);
    return upperCyrillic(character);
}

Text upperCase(TextView text) {
    Text result(text);
    for (char16_t& character : result)
        character = upperCase(character);
    return result;
}

Text replaced(TextView text, char16_t from, char16_t to) {
    Text result(text);
    for (char16_t& character : result) {
        if (character == from)
            character = to;
    }
    return result;
}

TextView middle(TextView text, std::size_t start, std::size_t count) {
    if (start == 0 || start > text.size())
        return {};
    return text.substr(start - 1, count);
}

TextView lastCharacter(TextView text) {
    return text.empty() ? text : text.substr(text.size() - 1);
}

Text fromUtf8(std::string_view bytes) {
    return decodeEach(bytes, [](Text& text) {
        text += replacement;
        return true;
    });
}

std::string toUtf8(TextView text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        const bool isHigh = unit >= 0xD800 && unit <= 0xDBFF;
        const bool isLow = unit >= 0xDC00 && unit <= 0xDFFF;
        const bool lowFollows =
            i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] <= 0xDFFF;
        if (isHigh && lowFollows) {
            const char32_t high = unit - 0xD800U;
            const char32_t low = text[++i] - 0xDC00U;
            appendUtf8(bytes, 0x10000U + (high << 10U) + low);
        } else {
            appendUtf8(bytes, isHigh || isLow ? replacement : unit);
        }
    }
    return bytes;
}

Text fromFileBytes(std::string_view bytes) {
    bool isUtf8 = true;
    Text text = decodeEach(bytes, [&](Text&) {
        isUtf8 = false;
        return false;
    });
    return isUtf8 ? text : fromWindows1252(bytes);
}

} // namespace orbisgrid
