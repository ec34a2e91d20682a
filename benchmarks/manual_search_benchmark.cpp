#include "benchmarks/cases.h"
#include "panels/manual_search.h"

#include <algorithm>

namespace orbisgrid::bench {

namespace {

// A find text that nearly matches everywhere in a manual of ten million characters: compared place
// by place it would take 5000 looks at each. "Per call" is per 1/4096 of one find here.

constexpr std::size_t manualLength = 10'000'000;

void NearlyMatchingFind(benchmark::State& state) {
    ManualSearch search(Text(manualLength, u'a'));
    const Text arm(5000, u'a');
    const Text wanted = arm + u"b" + arm;
    for (auto _ : state)
        benchmark::DoNotOptimize(search.DoTheSearch(wanted));
}

BENCHMARK(NearlyMatchingFind);

/// One look at each character.
void NearlyMatchingFindFloor(benchmark::State& state) {
    const Text manual(manualLength, u'a');
    for (auto _ : state) {
        std::size_t looks = 0;
        for (const char16_t& character : manual) {
            benchmark::DoNotOptimize(&character);
            looks += character == u'b' ? 1U : 0U;
        }
        benchmark::DoNotOptimize(looks);
    }
}

BENCHMARK(NearlyMatchingFindFloor);

const RegisterGoal goal("NearlyMatchingFind", "NearlyMatchingFindFloor", 10);

} // namespace

} // namespace orbisgrid::bench
