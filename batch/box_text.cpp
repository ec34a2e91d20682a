#include "batch/box_text.h"

#include "geodesy/locator_check.h"

#include <algorithm>

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
    Text text(bytes.size(), u' ');
    std::transform(bytes.begin(), bytes.end(), text.begin(), [](char byte) {
        return byte >= 0 ? static_cast<char16_t>(byte) : char16_t{0xFFFD};
    });
    return text;
}

bool isLocator(std::string_view text) {
    const Text locator = widened(inItsBox(text));
    return hasAcceptedLength(locator) && checkedHome(locator);
}

} // namespace orbisgrid
