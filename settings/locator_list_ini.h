#pragma once

#include "core/text.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orbisgrid {

/// What Orbisgrid.ini holds, as a value. The members stand in the order of the file.
struct LocatorListIni {
    /// Line 2, the bytes as they stood: a person's own comment goes through load and save byte for
    /// byte, whatever its encoding. Empty: the file had no second line.
    std::string TitleNote;
    Text DefaultHome;             ///< as read; written in upper case
    Text DefaultTarget;           ///< as read; written in upper case
    std::int16_t StayOnTop = 0;   ///< as read (1 = on); never written, the check box is
    std::vector<Text> homeList;   ///< as read at most 41 entries; of these the first 30 are written
    std::vector<Text> targetList; ///< the same
    std::int32_t NoCheckWebUpdates = 0; ///< not 0: no online test; only a text editor changes it
    std::int32_t RememberPosition = 0;  ///< not 0: the window goes back; only a text editor sets it
    std::int32_t savedLeft = 0;         ///< twips, as read; never written, the live position is
    std::int32_t savedTop = 0;          ///< twips, as read
};

/// What the writer takes from the running program instead of from what was read.
struct IniWindowState {
    Text version;            ///< "3.1.1", part of line 1
    std::int16_t chkOnTop{}; ///< the check box, 0 or 1
    std::int32_t left{};     ///< the window's position in twips (1/1440 inch)
    std::int32_t top{};
};

/// How many entries of a list are written, blank ones included, and how many are read.
inline constexpr std::size_t writtenListEntries = 30;
inline constexpr std::size_t readListEntries = 41;

/// The line that ends a list. It counts trimmed and in exactly these letters.
inline constexpr TextView listTerminator = u"[**end**]";

/// Reads the file. Every line counts by its place; of the bracketed labels only the list terminator
/// is looked at. Lines end at CR LF or at a lone LF; a CR that is the very last byte ends its line
/// too (it is half of a line end that was cut).
///
/// - Texts and list entries are whole lines, untrimmed. An empty line is no list entry, a line of
///   blanks is one.
/// - A number is the field up to the first blank, comma or line end behind leading blanks: its
///   leading number, to the nearest whole number, halves to even. One that does not fit its type
///   leaves the value at 0. Labels before the last four numbers are fields too: one that opens with
///   a double quote runs to the closing quote, over line ends as well. What stands behind a field
///   on its line is skipped.
/// - A list without its terminator takes every line to the end of the file (41 are kept).
///
/// Never fails: what a short file does not reach keeps its initial value. Texts are UTF-8, or
/// Windows-1252 in a line that is no UTF-8.
[[nodiscard]] LocatorListIni readLocatorListIni(std::string_view bytes);

/// Line 2 as it is saved: a note of fewer than 3 characters becomes ";".
[[nodiscard]] std::string savedTitleNote(const std::string& TitleNote);

/// The whole file, every line ended by CR LF, texts in UTF-8, TitleNote by `savedTitleNote`.
/// Blank entries are not written but count among the 30. Numbers are in print form with a blank
/// behind (" 1 ", "-1 ").
[[nodiscard]] std::string writeLocatorListIni(const LocatorListIni& ini,
                                              const IniWindowState& window);

/// What the window's caption gets from line 2: its characters from the second one on, at most 80;
/// nothing when line 2 has no more than 2 characters. Characters are whole ones: a pair of
/// surrogates is never cut.
[[nodiscard]] std::optional<Text> captionNote(const std::string& TitleNote);

/// Where the window is to be moved at start-up, in twips. A coordinate is empty when it stays:
/// without RememberPosition both, else those that were saved as 0 or less.
struct RestoredPosition {
    std::optional<std::int32_t> left;
    std::optional<std::int32_t> top;
};

[[nodiscard]] RestoredPosition restoredPosition(const LocatorListIni& ini);

/// Whether the stay-on-top box is to be set at start-up: for exactly 1, not for -1 or 2.
[[nodiscard]] bool opensOnTop(const LocatorListIni& ini);

} // namespace orbisgrid
