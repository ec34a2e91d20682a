// Checks the results of everything that is measured, measures it, and compares it with the goals.
// Exit status: 1 where a check fails or, in a full run, a goal is missed.

#include "benchmarks/cases.h"

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <map>

namespace {

using orbisgrid::bench::caseCount;
using orbisgrid::bench::cases;
using orbisgrid::bench::partnerOf;

bool checksHold() {
    bool isGood = true;
    for (const auto& check : orbisgrid::bench::checks()) {
        std::size_t wrong = 0;
        for (std::size_t i = 0; i < caseCount; ++i)
            wrong += check.holds(cases()[i], partnerOf(i)) ? 0 : 1;
        if (wrong != 0)
            std::printf("WRONG: %s, in %zu of %zu cases\n", check.name.c_str(), wrong, caseCount);
        isGood = isGood && wrong == 0;
    }
    return isGood;
}

/// Prints one line a benchmark and keeps its quickest run: others work on the machine too.
class Quickest : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            if (run.run_type == Run::RT_Iteration) {
                auto [place, isNew] = m_seconds.try_emplace(run.run_name.function_name, 1e9);
                const double calls = static_cast<double>(run.iterations) * caseCount;
                place->second = std::min(place->second, run.cpu_accumulated_time / calls);
            }
        }
        std::vector<Run> shown;
        std::copy_if(runs.begin(), runs.end(), std::back_inserter(shown), isShown);
        ConsoleReporter::ReportRuns(shown);
    }

    /// Nanoseconds a call; 0 for a benchmark that did not run.
    double of(const std::string& name) const {
        const auto found = m_seconds.find(name);
        return found == m_seconds.end() ? 0 : found->second * 1e9;
    }

private:
    static bool isShown(const Run& run) {
        const bool isOneOfMany = run.run_type == Run::RT_Iteration && run.repetitions > 1;
        const std::string& aggregate = run.aggregate_name;
        return !isOneOfMany && (aggregate.empty() || aggregate == "median" || aggregate == "BigO");
    }

    std::map<std::string, double> m_seconds;
};

bool goalsAreReached(const Quickest& quickest) {
    bool isGood = true;
    std::printf("\n%-34s %-22s %8s %8s %7s %7s\n", "quickest runs", "compared with", "ns", "ns",
                "times", "goal");
    for (const auto& goal : orbisgrid::bench::goals()) {
        const double own = quickest.of(goal.benchmark);
        const double other = quickest.of(goal.reference);
        if (own == 0 || other == 0)
            continue;
        const bool isReached = own <= goal.most * other;
        std::printf("%-34s %-22s %8.1f %8.1f %7.2f %7.2f %s\n", goal.benchmark.c_str(),
                    goal.reference.c_str(), own, other, own / other, goal.most,
                    isReached ? "" : "MISSED");
        isGood = isGood && isReached;
    }
    return isGood;
}

} // namespace

int main(int argc, char** argv) {
    if (!checksHold())
        return 1;
    std::vector<char*> arguments{argv, argv + argc};
    std::string repetitions = "--benchmark_repetitions=9";
    std::string interleaving = "--benchmark_enable_random_interleaving=true";
    std::string time = "--benchmark_min_time=0.05";
    for (std::string* option : {&repetitions, &interleaving, &time})
        arguments.insert(arguments.begin() + 1, option->data()); // the caller's own win
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data()))
        return 2;
    Quickest quickest;
    benchmark::RunSpecifiedBenchmarks(&quickest);
    benchmark::Shutdown();
    return goalsAreReached(quickest) ? 0 : 1;
}
