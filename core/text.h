#pragma once

#include "core/runtime_error.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace orbisgrid {

/// Every text of the program: UTF-16 code units. Fixed positions are counted in code units and
/// characters are compared by their code, as the notations (locator, UI-View text) define it.
using Text = std::u16string;
using TextView = std::u16string_view;

/// The line end of the clipboard texts and of the INI file.
inline constexpr TextView lineEnd = u"\r\n";

/// The part of `text` between its leading and trailing blanks. A blank is the character with
/// code 32 and nothing else: a tab or a no-break space stays.
[[nodiscard]] TextView trimmed(TextView text);

/// `text` without its leading blanks (code 32).
[[nodiscard]] TextView withoutLeadingBlanks(TextView text);

/// `text` in upper case, code unit by code unit: the length never changes, so "ß" stays "ß".
/// Covers Latin (ASCII, Latin-1, Extended-A), the Greek of today and Cyrillic to U+045F. No letter
/// outside ASCII becomes one inside it (a dotless i or a long s stays): what is no locator
/// character stays none.
[[nodiscard]] Text upperCase(TextView text);

/// The upper-case form of one code unit, as in `upperCase`.
[[nodiscard]] char16_t upperCase(char16_t character);

/// One character in the place of another.
struct Replacement {
    char16_t from, to;
};

/// `text` with every `from` replaced by `to`.
[[nodiscard]] Text replaced(TextView text, Replacement exchange);

/// At most `count` code units of `text` from position `start` on. Positions count from 1; a part
/// that runs past the end is shorter or empty, and so is one from a position below 1.
[[nodiscard]] TextView middle(TextView text, std::size_t start, std::size_t count);

/// The last code unit as a text; empty for an empty text.
[[nodiscard]] TextView lastCharacter(TextView text);

/// The character with a given code. Result: one code unit.
/// Throws RuntimeError 5 for a code outside 0..255: the range of a character conversion here is
/// one byte, which is what keeps nonsense positions out of the boxes.
inline char16_t characterWithCode(double wholeCode) {
    if (!(wholeCode >= 0 && wholeCode <= 255))
        RuntimeError::raise(RuntimeError::invalidProcedureCall);
    return static_cast<char16_t>(wholeCode);
}

/// UTF-8 to UTF-16. Bytes that are no UTF-8 become U+FFFD, one for each byte.
[[nodiscard]] Text fromUtf8(std::string_view bytes);

/// UTF-16 to UTF-8. A surrogate without its partner becomes U+FFFD.
[[nodiscard]] std::string toUtf8(TextView text);

/// Bytes of a file that a person may have written with any editor: read as UTF-8 where they are
/// UTF-8 from end to end, else as Windows-1252, the code page that older editors used. No byte is
/// lost: the five that Windows-1252 leaves open become the control characters of the same code.
[[nodiscard]] Text fromFileBytes(std::string_view bytes);

} // namespace orbisgrid
