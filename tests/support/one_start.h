#pragma once

#include "settings/use_counter.h"

namespace orbisgrid::test {

/// What a start does with the use counter: its number is read, then the next one is stored.
inline std::int32_t oneStart(SettingsStore& store) {
    const std::int32_t counter = readUseCounter(store);
    advanceUseCounter(store, counter);
    return counter;
}

} // namespace orbisgrid::test
