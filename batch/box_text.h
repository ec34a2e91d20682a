#pragma once

#include "core/text.h"

#include <string_view>

namespace orbisgrid {

/// What the box of Home or Target holds of a locator: its first six characters. Calculate takes
/// blanks (code 32) around them away, and no tabs.
[[nodiscard]] std::string_view inItsBox(std::string_view locator);

/// Bytes of a list as a text of as many characters. One that is none of ASCII becomes a letter
/// beyond it, which is no locator character, whatever letter it was part of.
[[nodiscard]] Text widened(std::string_view bytes);

/// Whether a text is a locator that can be Home: what counts of it passes the check of Calculate.
[[nodiscard]] bool isLocator(std::string_view text);

} // namespace orbisgrid
