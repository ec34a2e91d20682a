#pragma once

#include "records/record_window.h"

#include <optional>
#include <span>
#include <string_view>

namespace orbisgrid {

/// The forms of a list.
enum class Format { lines, csv, tsv, adif, json };

/// The name of a format, as the options have it.
[[nodiscard]] std::string_view nameOf(Format format);

/// The format of this name; nothing for another text.
[[nodiscard]] std::optional<Format> formatNamed(std::string_view name);

/// The format that the end of a file's name stands for: .csv, .tsv, .adi, .adif in any case.
/// Nothing for other names.
[[nodiscard]] std::optional<Format> formatOfFile(std::string_view path);

/// So many bytes are looked at to guess a format.
inline constexpr std::size_t guessedFrom = 4096;

/// The format of a file that begins with `bytes` (`guessedFrom` of them, or all there are). A first
/// line with one of `columns` among its fields is the header of a table; a field specifier anywhere
/// means ADIF; all else is `lines`.
[[nodiscard]] Format guessedFormat(std::string_view bytes,
                                   std::span<const std::string_view> columns);

/// Whether a line begins as no header does: with "=", with a word of two letters and two digits in
/// turns, or with a digit or a sign where the rest is of numbers and directions too. A file whose
/// first line does is one of `lines`, and nobody has to wait for more of it.
[[nodiscard]] bool beginsWithPlace(std::string_view line);

/// Whether a field of a header is the name of a column, in any case and between blanks.
[[nodiscard]] bool isColumn(std::string_view field, std::string_view name);

} // namespace orbisgrid
