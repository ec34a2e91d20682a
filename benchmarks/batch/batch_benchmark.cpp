// Measures whole runs of orbisgrid-batch against their peers, taking turns, in a folder of its own:
//   batch_benchmark <orbisgrid-batch> <folder> <rounds>
// Prints medians. Exit status: 1 where a goal is missed, 2 where something cannot be run.

#include "geodesy/calc_dist_azimuth.h"
#include "tests/support/made_log.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <limits>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using orbisgrid::test::LogKind;
using orbisgrid::test::madeLocator;

/// What a run took.
struct Cost {
    double seconds = 0;   ///< from start to end
    double processor = 0; ///< seconds of it, the program's and the system's
    double megabytes = 0; ///< at most
};

using Command = std::vector<std::string>;

Cost costOf(const Command& command, const std::string& input, const std::string& output) {
    const auto start = std::chrono::steady_clock::now();
    const pid_t child = ::vfork();
    if (child == 0) {
        std::vector<char*> words;
        for (const std::string& word : command)
            words.push_back(const_cast<char*>(word.c_str()));
        words.push_back(nullptr);
        ::dup2(::open(input.c_str(), O_RDONLY), STDIN_FILENO);
        ::dup2(::open(output.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666), STDOUT_FILENO);
        ::execvp(words[0], words.data());
        ::_exit(127);
    }
    int status = 0;
    rusage usage{};
    if (::wait4(child, &status, 0, &usage) != child || !WIFEXITED(status) ||
        WEXITSTATUS(status) != 0)
        throw std::runtime_error(command[0] + " failed");
    const auto seconds = [](timeval time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return {std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count(),
            seconds(usage.ru_utime) + seconds(usage.ru_stime),
            static_cast<double>(usage.ru_maxrss) / 1024};
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

/// What is measured, in turns, and the medians of it.
class Turns {
public:
    void add(const std::string& name, std::function<double()> measure) {
        m_measures.emplace_back(name, std::move(measure));
    }

    void run(int rounds) {
        for (int round = 0; round < rounds; ++round) {
            for (const auto& [name, measure] : m_measures)
                m_values[name].push_back(measure());
        }
        m_measures.clear();
    }

    double of(const std::string& name) const { return median(m_values.at(name)); }

private:
    std::vector<std::pair<std::string, std::function<double()>>> m_measures;
    std::map<std::string, std::vector<double>> m_values;
};

std::string pairOf(std::size_t number) {
    return madeLocator(number * 7919 + 3) + " " + madeLocator(number * 104729 + 11);
}

void writePairs(const std::string& path, std::size_t count) {
    std::ofstream file(path, std::ios::binary);
    for (std::size_t i = 0; i < count; ++i)
        file << pairOf(i) << '\n';
}

/// The same places as positions, as GeodSolve reads them.
void writePositions(const std::string& path, const std::string& results) {
    std::ifstream lines(results);
    std::ofstream file(path, std::ios::binary);
    for (std::string line; std::getline(lines, line);) {
        std::size_t at = line.size();
        for (int field = 0; field < 4; ++field)
            at = line.rfind('\t', at - 1);
        std::string positions = line.substr(at + 1);
        std::replace(positions.begin(), positions.end(), '\t', ' ');
        file << positions << '\n';
    }
}

/// Seconds that CalcDistAzimuth takes for as many pairs, their locators being texts already.
double secondsOfCalls(std::size_t count) {
    static const auto pairs = [count] {
        std::vector<std::pair<orbisgrid::Text, orbisgrid::Text>> made;
        for (std::size_t i = 0; i < count; ++i)
            made.emplace_back(orbisgrid::fromUtf8(pairOf(i).substr(0, 6)),
                              orbisgrid::fromUtf8(pairOf(i).substr(7)));
        return made;
    }();
    const auto start = std::chrono::steady_clock::now();
    std::size_t length = 0;
    for (const auto& [home, target] : pairs) {
        orbisgrid::FormTexts texts;
        orbisgrid::CalcDistAzimuth(home, target, texts);
        length += texts.DistText.size();
    }
    if (length == 0)
        throw std::runtime_error("nothing was calculated");
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

bool isAllMet = true;

void printGoal(const char* measure, double value, const char* relation, double goal) {
    const bool isMet = relation[0] == '<' ? value <= goal : value >= goal;
    std::printf("%-66s %9.3f %s %7.2f %s\n", measure, value, relation, goal, isMet ? "" : "MISSED");
    isAllMet = isAllMet && isMet;
}

void measureStart(const std::string& program, const std::string& folder, int rounds) {
    writePairs(folder + "/one.txt", 1);
    const std::string home = pairOf(0).substr(0, 6), target = pairOf(0).substr(7);
    Turns turns;
    turns.add("own", [&] {
        return costOf({program, "distance"}, folder + "/one.txt", "/dev/null").seconds;
    });
    const Command wwl{"wwl", home, target};
    turns.add("wwl", [&] { return costOf(wwl, "/dev/null", "/dev/null").seconds; });
    turns.run(rounds * 20);
    std::printf("one line: %.3f ms, wwl %.3f ms\n", turns.of("own") * 1e3, turns.of("wwl") * 1e3);
    printGoal("one line, start to end / wwl", turns.of("own") / turns.of("wwl"), "<=", 1.8);
}

void measurePairs(const std::string& program, const std::string& folder, int rounds) {
    constexpr std::size_t count = 1'000'000;
    const std::string pairs = folder + "/pairs.txt", results = folder + "/results.txt";
    writePairs(pairs, count);
    costOf({program, "distance"}, pairs, results);
    writePositions(folder + "/positions.txt", results);
    Turns turns;
    turns.add("own", [&] { return costOf({program, "distance"}, pairs, results).seconds; });
    turns.add("call", [] { return secondsOfCalls(count); });
    turns.run(rounds);
    turns.add("GeodSolve", [&] {
        return costOf({"GeodSolve", "-i"}, folder + "/positions.txt", results).seconds;
    });
    turns.run(std::max(1, rounds / 4));
    std::printf("a million pairs: %.3f s, calls %.3f s, GeodSolve %.3f s\n", turns.of("own"),
                turns.of("call"), turns.of("GeodSolve"));
    printGoal("time a line / CalcDistAzimuth", turns.of("own") / turns.of("call"), "<=", 2.2);
    printGoal("lines a second / GeodSolve -i", turns.of("GeodSolve") / turns.of("own"), ">=", 10);
}

void measureLog(const std::string& program, const std::string& folder, int rounds) {
    const std::string log = folder + "/log.adi", out = folder + "/out.adi";
    std::ofstream(log, std::ios::binary) << orbisgrid::test::madeLog(100'000, LogKind::plain);
    Turns turns;
    turns.add("own", [&] { return costOf({program, "distance", log}, "/dev/null", out).seconds; });
    turns.add("cat", [&] {
        return costOf({"sh", "-c", "cat " + log + " | wc -c"}, "/dev/null", "/dev/null").seconds;
    });
    turns.run(rounds * 2);
    std::printf("100,000 contacts: %.4f s, cat | wc -c %.4f s\n", turns.of("own"), turns.of("cat"));
    printGoal("ADIF, bytes a second / cat FILE | wc -c", turns.of("cat") / turns.of("own"),
              ">=", 0.15);
}

/// A list of so many lines and the least that it has cost.
struct Growth {
    std::size_t count{};
    std::string list;
    double seconds = std::numeric_limits<double>::infinity();
    double megabytes = 0;

    void measure(const std::string& program) {
        const Cost cost = costOf({program, "distance"}, list, "/dev/null");
        seconds = std::min(seconds, cost.processor);
        megabytes = std::max(megabytes, cost.megabytes);
    }
};

/// How far lists of a thousand to ten million lines cost what a straight line says: the start,
/// which a list of one line has too, and for each line what it costs in the longest list. The sizes
/// take turns, the short ones more often.
void measureGrowth(const std::string& program, const std::string& folder, int rounds) {
    constexpr std::size_t linesInTurn = 3'000'000;
    constexpr std::size_t mostRuns = 100;
    std::vector<Growth> sizes;
    for (const std::size_t count : {1U, 1'000U, 10'000U, 100'000U, 1'000'000U, 10'000'000U}) {
        sizes.push_back({count, folder + "/list" + std::to_string(count) + ".txt"});
        writePairs(sizes.back().list, count);
    }
    for (int round = 0; round < rounds; ++round) {
        for (Growth& size : sizes) {
            const std::size_t runs = std::clamp(linesInTurn / size.count, std::size_t{1}, mostRuns);
            for (std::size_t run = 0; run < runs; ++run)
                size.measure(program);
        }
    }
    const Growth &start = sizes.front(), &longest = sizes.back();
    const double each =
        (longest.seconds - start.seconds) / static_cast<double>(longest.count - start.count);
    double farthest = 0;
    for (std::size_t i = 1; i < sizes.size(); ++i) {
        const auto& [count, list, seconds, megabytes] = sizes[i];
        const double straight = start.seconds + static_cast<double>(count - start.count) * each;
        std::printf("%10zu lines: %9.5f s of processor, the straight line %9.5f s, %.2f MB\n",
                    count, seconds, straight, megabytes);
        farthest = std::max(farthest, std::abs(seconds / straight - 1));
        std::filesystem::remove(list);
    }
    printGoal("MB at most, ten million lines", longest.megabytes, "<=", 8);
    printGoal("the same / of a thousand lines", longest.megabytes / sizes[1].megabytes, "<=", 1.25);
    printGoal("a thousand to ten million lines, from the straight line", farthest, "<=", 0.1);
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 4)
        return 2;
    const std::string program = argv[1], folder = argv[2];
    const int rounds = std::max(1, std::atoi(argv[3]));
    try {
        // First: a child's peak counts from that of this process.
        measureGrowth(program, folder, std::max(1, rounds / 3));
        measureStart(program, folder, rounds);
        measurePairs(program, folder, rounds);
        measureLog(program, folder, rounds);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "batch_benchmark: %s\n", error.what());
        return 2;
    }
    return isAllMet ? 0 : 1;
}
