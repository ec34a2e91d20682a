#pragma once

#include "core/text.h"

#include <cstddef>
#include <vector>

namespace orbisgrid {

/// What a text box shows of the manual, and where each of the manual's characters stands in it.
///
/// The box holds one character, LF, for each CR LF. Lines are cut behind every 2000 characters:
/// a box lays out whole lines, and one of megabytes (a file that is no text) would freeze it.
class ManualDisplay {
public:
    /// `manual` holds no CR or LF but in pairs of CR LF, as `manualText` leaves it.
    explicit ManualDisplay(TextView manual);

    const Text& text() const { return m_text; }

    /// The index, from 0, in `text()` of the manual's character at `position`, from 1.
    std::size_t place(std::size_t position) const;

private:
    Text m_text;
    std::vector<std::size_t> m_lineEnds; ///< positions of CR in the manual, ascending
    std::vector<std::size_t> m_cuts;     ///< positions in front of which a line is cut
};

} // namespace orbisgrid
