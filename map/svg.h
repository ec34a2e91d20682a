#pragma once

#include "map/picture.h"

#include <string>

namespace orbisgrid {

/// What a drawing says of itself to whoever cannot see it.
struct SvgWords {
    Text title;       ///< a few words
    Text description; ///< sentences
};

/// A picture as a stand-alone SVG 1.1 file in UTF-8. Each element has its role as its class, and
/// one style sheet has the colours: for paper, and still to be told apart in black and white.
/// Numbers have a point and at most two decimals, whatever the locale. Characters that XML cannot
/// hold become U+FFFD.
[[nodiscard]] std::string svgText(const Picture& picture, const SvgWords& words);

} // namespace orbisgrid
