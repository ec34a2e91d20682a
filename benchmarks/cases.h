#pragma once

#include "core/position.h"
#include "core/text.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <string>
#include <vector>

namespace orbisgrid::bench {

/// How many cases one iteration of every benchmark goes through.
inline constexpr std::size_t caseCount = 4096;

/// One random position on land or sea, in every form that a benchmark starts from.
struct Case {
    Position position;
    Text six; ///< its locator of six characters
    Text ten; ///< and of ten
    std::string narrowSix, narrowTen;
    Text decLong, decLat; ///< as the decimal boxes hold it
};

/// The same cases in every run.
const std::vector<Case>& cases();

/// A case to pair each one with.
const Case& partnerOf(std::size_t index);

/// Runs `call` with each case, again and again, and reports nanoseconds a call.
template <typename Call>
void overCases(benchmark::State& state, Call call) {
    for (auto _ : state) {
        for (std::size_t i = 0; i < caseCount; ++i)
            benchmark::DoNotOptimize(call(cases()[i], i));
    }
    state.counters["per call"] = benchmark::Counter(
        caseCount, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

// Checks ----------------------------------------------------------------------------------------

/// A comparison of results that has to hold before anything is measured.
struct Check {
    std::string name;
    bool (*holds)(const Case& one, const Case& partner);
};

std::vector<Check>& checks();

/// Registers a check at file scope.
struct RegisterCheck {
    RegisterCheck(std::string name, bool (*holds)(const Case&, const Case&)) {
        checks().push_back({std::move(name), holds});
    }
};

// Goals -----------------------------------------------------------------------------------------

/// What one benchmark is to cost, as a multiple of another one in the same run.
struct Goal {
    std::string benchmark;
    std::string reference;
    double most; ///< times the reference
};

std::vector<Goal>& goals();

struct RegisterGoal {
    RegisterGoal(std::string benchmark, std::string reference, double most) {
        goals().push_back({std::move(benchmark), std::move(reference), most});
    }
};

} // namespace orbisgrid::bench
