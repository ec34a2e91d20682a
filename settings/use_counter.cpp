#include "settings/use_counter.h"

#include "core/number_text.h"

#include <limits>

namespace orbisgrid {

namespace {

constexpr TextView useCounterKey = u"UseCounter";

} // namespace

std::int32_t useCounterFrom(TextView stored) {
    return nearestInt32(leadingNumber(stored)).value_or(0);
}

std::optional<Text> nextUseCounter(std::int32_t counter) {
    if (counter == std::numeric_limits<std::int32_t>::max())
        return std::nullopt;
    return plainText(static_cast<double>(counter + 1));
}

bool opensHomePage(std::int32_t counter) {
    constexpr std::int32_t every = 30;
    constexpr std::int32_t remainder = 20;
    return counter % every == remainder;
}

std::int32_t readUseCounter(const SettingsStore& store) {
    const std::optional<Text> stored = store.read(useCounterKey, u"1");
    return stored ? useCounterFrom(*stored) : 0;
}

void advanceUseCounter(SettingsStore& store, std::int32_t counter) {
    if (const std::optional<Text> next = nextUseCounter(counter))
        (void)store.write({{Text(useCounterKey), *next}}); // the count then stays as it is
}

} // namespace orbisgrid
