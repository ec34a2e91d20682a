#pragma once

#include <string>
#include <string_view>

namespace orbisgrid {

/// A part of somebody's file, or a name, as one line of a terminal can show it: "?" in the place of
/// control characters, also of those beyond ASCII in UTF-8. Other bytes stay as they are.
[[nodiscard]] std::string printable(std::string_view text);

/// The same of a text of any length: at most 60 bytes, whole characters, and "..." where that is
/// not all.
[[nodiscard]] std::string shortened(std::string_view text);

} // namespace orbisgrid
