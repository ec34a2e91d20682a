#include "core/locator_grid.h"

namespace orbisgrid {

Text completedTo(std::size_t length, Text locator) {
    constexpr TextView filled = u"....LL55AA";
    constexpr std::size_t shortest = 4;
    if (locator.size() >= shortest && locator.size() < length)
        locator += filled.substr(locator.size(), length - locator.size());
    return locator;
}

} // namespace orbisgrid
