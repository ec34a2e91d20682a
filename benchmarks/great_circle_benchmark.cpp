#include "benchmarks/cases.h"
#include "geodesy/calc_dist_azimuth.h"
#include "geodesy/great_circle.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace orbisgrid::bench {

namespace {

constexpr float pi = 3.14159274f;
constexpr auto rad = static_cast<float>(static_cast<double>(pi) / 180);

struct FloorPoint {
    double lonW, lat; ///< degrees, rounded to single
};

float single(double value) {
    return static_cast<float>(value);
}

FloorPoint floorPoint(const std::string& c) {
    return {single(180 - 20.0 * (c[0] - 'A') - 2.0 * (c[2] - '0') - (c[4] - 'A') / 12.0 - 1 / 24.0),
            single(10.0 * (c[1] - 'A') - 90 + (c[3] - '0') + (c[5] - 'A') / 24.0 + 1 / 48.0)};
}

struct FloorCircle {
    double km, azimuth;
};

/// The same steps, each once, and of what may fail only the quotient that rounds beyond 1.
FloorCircle floorCircle(FloorPoint home, FloorPoint target) {
    const double lonH = single(home.lonW * rad), lonT = single(target.lonW * rad);
    const double latH = single(home.lat * rad), latT = single(target.lat * rad);
    const double sinH = single(std::sin(latH)), cosH = single(std::cos(latH));
    const double sinT = single(std::sin(latT)), cosT = single(std::cos(latT));
    const double cosd = single(sinH * sinT + cosH * cosT * std::cos(lonT - lonH));
    const double s = single(std::sqrt(1 - cosd * cosd));
    double d = single(std::atan(s / cosd));
    if (cosd < 0)
        d = single(d + pi);
    const double t = std::clamp(single((sinT - sinH * cosd) / (s * cosH)), -1.0F, 1.0F);
    const double u = single(std::sqrt(1 - t * t));
    double az = single(std::atan(u / std::fabs(t)) / rad);
    if (single(std::sin(lonH - lonT)) < 0)
        az = -az;
    if (t < 0)
        az = single(180 - az);
    if (az < 0)
        az = single(az + 360);
    return {single(6367 * d), az};
}

/// The four numbers as characters, one behind the other.
struct FloorTexts {
    std::array<char, 96> buffer{};
    char* end = nullptr;

    void add(double value, int digits) {
        char* const last = buffer.data() + buffer.size();
        end = std::to_chars(end == nullptr ? buffer.data() : end, last, value,
                            std::chars_format::general, digits)
                  .ptr;
    }
};

FloorTexts floorTexts(const Case& home, const Case& target) {
    const FloorPoint point = floorPoint(target.narrowSix);
    const FloorCircle circle = floorCircle(floorPoint(home.narrowSix), point);
    FloorTexts texts;
    texts.add(std::floor(std::floor(circle.km * 10 + 0.5) / 10), 15);
    texts.add(point.lonW, 7);
    texts.add(point.lat, 7);
    texts.add(std::floor(circle.azimuth), 15);
    return texts;
}

const RegisterCheck agrees("distance and azimuth", [](const Case& home, const Case& target) {
    FormTexts program;
    CalcDistAzimuth(home.six, target.six, program);
    const FloorCircle floor = floorCircle(floorPoint(home.narrowSix), floorPoint(target.narrowSix));
    return std::stod(toUtf8(program.DistText)) ==
               std::floor(std::floor(floor.km * 10 + 0.5) / 10) &&
           std::stod(toUtf8(program.AzimuthText)) == std::floor(floor.azimuth);
});

void DistanceTexts(benchmark::State& state) {
    overCases(state, [](const Case& home, std::size_t i) {
        FormTexts texts;
        CalcDistAzimuth(home.six, partnerOf(i).six, texts);
        return texts;
    });
}

void DistanceTextsFloor(benchmark::State& state) {
    overCases(state,
              [](const Case& home, std::size_t i) { return floorTexts(home, partnerOf(i)); });
}

BENCHMARK(DistanceTexts);
BENCHMARK(DistanceTextsFloor);
const RegisterGoal distanceGoal("DistanceTexts", "DistanceTextsFloor", 1.5);

/// Cost by number of pairs: a line through the origin.
void DistanceByPairs(benchmark::State& state) {
    const auto pairs = static_cast<std::size_t>(state.range(0));
    for (auto _ : state) {
        FormTexts texts;
        for (std::size_t i = 0; i < pairs; ++i) {
            CalcDistAzimuth(cases()[i % caseCount].six, partnerOf(i % caseCount).six, texts);
            benchmark::DoNotOptimize(texts);
        }
    }
    state.SetComplexityN(state.range(0));
    state.counters["per pair"] = benchmark::Counter(static_cast<double>(pairs),
                                                    benchmark::Counter::kIsIterationInvariantRate |
                                                        benchmark::Counter::kInvert);
}

BENCHMARK(DistanceByPairs)
    ->RangeMultiplier(100)
    ->Range(10, 10'000'000)
    ->Repetitions(1)
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oN);

} // namespace

} // namespace orbisgrid::bench
