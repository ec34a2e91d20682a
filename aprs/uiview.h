#pragma once

#include "core/conversion.h"
#include "core/position.h"
#include "core/text.h"

#include <optional>

namespace orbisgrid {

/// A position read from a UI-View text.
struct UIViewPosition {
    Position position; ///< stored as singles: the decimal boxes show their seven digits
    bool isSouth = false;
    bool isWest = false; ///< from the letters, so that 0 degrees may be south or west
};

/// The UI-View text of a position: "=5056.17N/00402.07E".
///
/// The two digits behind each point are whole SECONDS of arc (0 to 60), not hundredths of a minute:
/// writer and reader agree on it, and the text reads back to the same degrees, minutes and seconds.
/// A field that overflows (60 seconds fit; 100 degrees of latitude do not) is written with its
/// extra digit and shifts what stands behind it. The hemispheres come from the two letters, not
/// from `isNegative`.
[[nodiscard]] Text uiViewText(const WholeDms& latitude, TextView northSouth,
                              const WholeDms& longitude, TextView eastWest);

/// Reads a UI-View text by position. Result: nothing for fewer than 10 characters.
///
/// One character of prefix is skipped unless the text begins with 1 to 9; a text without prefix
/// that begins with "0" is read one place too far to the right. Missing or non-numeric fields read
/// as 0, minutes and seconds above 59 count as they stand, and only an upper-case "S" ("W") is
/// south (west).
[[nodiscard]] std::optional<UIViewPosition> readUIViewText(TextView text);

} // namespace orbisgrid
