#include "batch/box_text.h"

#include "geodesy/locator_check.h"

#include <cstdint>

namespace orbisgrid {

std::string_view inItsBox(std::string_view locator) {
    constexpr std::size_t boxLength = 6;
    while (locator.starts_with(' '))
        locator.remove_prefix(1);
    locator = locator.substr(0, boxLength);
    while (locator.ends_with(' '))
        locator.remove_suffix(1);
    return locator;
}

Text widened(std::string_view bytes) {
    Text text;
    text.reserve(bytes.size());
    for (const char byte : bytes)
        text += static_cast<std::uint8_t>(byte);
    return text;
}

bool isLocator(std::string_view text) {
    const Text locator = widened(inItsBox(text));
    return hasAcceptedLength(locator) && checkedHome(locator);
}

} // namespace orbisgrid
