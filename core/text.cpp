#include "core/text.h"

#include <array>
#include <cstdint>

namespace orbisgrid {

namespace {

constexpr char16_t blank = u' ';
constexpr char16_t replacement = 0xFFFD;

/// One Unicode scalar value read from UTF-8, and how many bytes it took.
struct Utf8Character {
    char32_t code{};
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
    constexpr auto smallest = std::to_array<char32_t>({0x80, 0x800, 0x10000});
    const bool isSurrogate = code >= 0xD800 && code <= 0xDFFF;
    return code >= smallest.at(length - 2) && code <= 0x10FFFF && !isSurrogate;
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
constexpr auto windows1252 = std::to_array<char16_t>(
    {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
     0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
     0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178});

Text fromWindows1252(std::string_view bytes) {
    Text text;
    text.reserve(bytes.size());
    for (const char byte : bytes) {
        const auto code = static_cast<std::uint8_t>(byte);
        text += code >= 0x80 && code < 0xA0 ? windows1252.at(code - 0x80U) : char16_t{code};
    }
    return text;
}

/// A stretch of small letters and how far it is from each to its capital. Where capitals stand
/// between them, every second code is a small letter's.
struct SmallLetters {
    char16_t first, last;
    int toCapital;
    bool isEverySecond = false;
};

/// Latin to the end of Extended-A, the Greek of today and Cyrillic to 0x45F, in the order of the
/// codes. Dotless i and long s are not among them: their capitals are ASCII letters. Source: the
/// Unicode character database.
constexpr auto smallLetters = std::to_array<SmallLetters>({
    {u'a', u'z', -32},
    {0xE0, 0xF6, -32},
    {0xF8, 0xFE, -32},
    {0xFF, 0xFF, 121},
    {0x101, 0x12F, -1, true},
    {0x133, 0x137, -1, true},
    {0x13A, 0x148, -1, true},
    {0x14B, 0x177, -1, true},
    {0x17A, 0x17E, -1, true},
    {0x3AC, 0x3AC, -38},
    {0x3AD, 0x3AF, -37},
    {0x3B1, 0x3C1, -32},
    {0x3C2, 0x3C2, -31}, // final sigma
    {0x3C3, 0x3CB, -32},
    {0x3CC, 0x3CC, -64},
    {0x3CD, 0x3CE, -63},
    {0x430, 0x44F, -32},
    {0x450, 0x45F, -80},
});

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
    for (const SmallLetters& letters : smallLetters) {
        if (character < letters.first)
            break;
        const bool isBetween = letters.isEverySecond && character % 2 != letters.first % 2;
        if (character <= letters.last && !isBetween)
            return static_cast<char16_t>(character + letters.toCapital);
    }
    return character;
}

Text upperCase(TextView text) {
    Text result(text);
    for (char16_t& character : result)
        character = upperCase(character);
    return result;
}

Text replaced(TextView text, Replacement exchange) {
    Text result(text);
    for (char16_t& character : result) {
        if (character == exchange.from)
            character = exchange.to;
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
