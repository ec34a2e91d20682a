#pragma once

#include "core/text.h"
#include "settings/settings_store.h"

#include <cstdint>
#include <optional>

namespace orbisgrid {

/// The number of this start, from the text in the store: its leading number to the nearest whole
/// number, halves to even ("8.5" is 8, "12abc" is 12, "abc" is 0). A number beyond 32 bits is not
/// taken over: 0.
[[nodiscard]] std::int32_t useCounterFrom(TextView stored);

/// The text that the next start is to find: `counter` plus 1. Nothing for the largest number, which
/// cannot be advanced: the store then keeps what it has.
[[nodiscard]] std::optional<Text> nextUseCounter(std::int32_t counter);

/// Whether a start with this number opens the home page: the 20th, 50th, 80th and so on. People are
/// told of new versions there, seldom enough not to be in anybody's way.
[[nodiscard]] bool opensHomePage(std::int32_t counter);

/// Reads "UseCounter" (default "1": the first start shows 1). Result: the number of this start; 0
/// when the store cannot be read.
[[nodiscard]] std::int32_t readUseCounter(const SettingsStore& store);

/// Stores what the next start is to find after one with the number `counter`. A store that cannot
/// be written is passed over without a word: the count is then the same at the next start.
void advanceUseCounter(SettingsStore& store, std::int32_t counter);

} // namespace orbisgrid
