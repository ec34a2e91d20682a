#pragma once

#include "core/text.h"

#include <cstddef>
#include <string_view>

namespace orbisgrid {

/// The manual as the Help window holds it, from the bytes of its file.
///
/// The file is read line by line (a line ends at CR LF, LF or CR) and every line gets CR LF, so the
/// text ends with CR LF even where the file's last line has no end. No bytes give an empty text.
/// Bytes are read as `fromFileBytes` reads them; a byte order mark in front is left out.
[[nodiscard]] Text manualText(std::string_view fileBytes);

/// What one find led to.
struct ManualFind {
    enum class Outcome {
        cancelled,   ///< the answer was empty: nothing is selected or said
        found,       ///< select `length` characters from `position` on
        nothingFound ///< say "Nothing found" and take the selection away
    };
    Outcome outcome = Outcome::cancelled;
    std::size_t position{}; ///< of the match's first character, counted from 1
    std::size_t length = 0;
};

/// The find of the Help window as a value: what is looked for and where the next find begins.
/// Positions count code units of the manual from 1; 0 stands for none.
class ManualSearch {
public:
    /// Looks through `manual`. It is put into upper case here, once, so that a find in a manual of
    /// many megabytes costs only the way to the match.
    explicit ManualSearch(TextView manual);

    /// One find for the text that was typed; an empty one is a cancelled question.
    ///
    /// Letter case does not count in the manual, but it does in the comparison with the find
    /// before, which comes before the typed text is put into upper case: "locator" typed twice
    /// finds the first place twice, while a repeat of `SearchString()`, which the question is
    /// preset with, goes on to the next place. Behind the last place it starts from the top. The
    /// next place is looked for from one character behind the match's START, so that matches may
    /// overlap: AA in aaaa is at 1, 2, 3 and 1 again.
    ManualFind DoTheSearch(TextView answer);

    /// What the next question is preset with: the find text in upper case, empty after a cancelled
    /// find and after one without a match.
    const Text& SearchString() const { return m_searchString; }

    const Text& LastSearch() const { return m_lastSearch; }

    std::size_t SearchPos() const { return m_searchPos; }

    std::size_t NextStart() const { return m_nextStart; }

    bool Found() const { return m_found; }

private:
    /// The next match from `start` on, which is 1 at least and at most one behind the last
    /// character: no look-ahead begins beyond a match. Result: 0 where there is none.
    std::size_t positionFrom(std::size_t start) const;
    void lookAhead();

    Text m_upperManual;
    Text m_searchString;
    Text m_lastSearch;
    std::size_t m_searchPos = 0; ///< where the next find begins
    std::size_t m_nextStart = 0; ///< where the look-ahead began
    bool m_found = false;
};

} // namespace orbisgrid
