#include "benchmarks/cases.h"
#include "core/long_maidenhead.h"

#include <array>
#include <cmath>

namespace orbisgrid::bench {

namespace {

// Decoding to two numbers -----------------------------------------------------------------------

Position floorDecodeTen(const Case& one) {
    const std::string& c = one.narrowTen;
    const auto letter = [&](std::size_t i) { return static_cast<double>(c[i] - 'A'); };
    const auto digit = [&](std::size_t i) { return static_cast<double>(c[i] - '0'); };
    const auto longitude =
        static_cast<float>((((letter(4) / 24) + digit(2)) / 10 + letter(0)) * 20 - 180);
    const auto latitude =
        static_cast<float>((((letter(5) / 24) + digit(3)) / 10 + letter(1)) * 10 - 90);
    return {static_cast<float>(latitude + ((letter(9) / 24) + digit(7)) / 10 / 24),
            static_cast<float>(longitude + ((letter(8) / 24) + digit(6)) / 10 / 12)};
}

const RegisterCheck decodes("decoding ten characters", [](const Case& one, const Case&) {
    return cornerOfTen(one.ten) == floorDecodeTen(one);
});

void DecodeTen(benchmark::State& state) {
    overCases(state, [](const Case& one, std::size_t) { return cornerOfTen(one.ten); });
}

void DecodeTenFloor(benchmark::State& state) {
    overCases(state, [](const Case& one, std::size_t) { return floorDecodeTen(one); });
}

BENCHMARK(DecodeTen);
BENCHMARK(DecodeTenFloor);
const RegisterGoal decodeGoal("DecodeTen", "DecodeTenFloor", 4);

// Encoding --------------------------------------------------------------------------------------

using TenCharacters = std::array<char, 10>;

TenCharacters floorEncodeTen(const Case& one) {
    double x = (one.position.longitude + 180) / 20 + 0.0000001;
    double y = (one.position.latitude + 90) / 10 + 0.0000001;
    TenCharacters characters{};
    constexpr std::array<int, 5> cells{1, 10, 24, 10, 24};
    for (std::size_t i = 0; i < cells.size(); ++i) {
        const char first = i % 2 == 0 ? 'A' : '0';
        x = (x - (i == 0 ? 0 : static_cast<int>(x))) * cells[i];
        y = (y - (i == 0 ? 0 : static_cast<int>(y))) * cells[i];
        characters[2 * i] = static_cast<char>(std::nearbyint(x + first));
        characters[2 * i + 1] = static_cast<char>(std::nearbyint(y + first));
    }
    return characters;
}

Text encodeTen(const Case& one) {
    double longitude = one.position.longitude;
    double latitude = one.position.latitude;
    return Coordinates2LongMaiden(longitude, latitude);
}

const RegisterCheck encodes("encoding ten characters", [](const Case& one, const Case&) {
    const TenCharacters floor = floorEncodeTen(one);
    const Text program = encodeTen(one);
    return std::equal(floor.begin(), floor.end(), program.begin(), program.end());
});

void EncodeTen(benchmark::State& state) {
    overCases(state, [](const Case& one, std::size_t) { return encodeTen(one); });
}

void EncodeTenFloor(benchmark::State& state) {
    overCases(state, [](const Case& one, std::size_t) { return floorEncodeTen(one); });
}

BENCHMARK(EncodeTen);
BENCHMARK(EncodeTenFloor);
const RegisterGoal encodeGoal("EncodeTen", "EncodeTenFloor", 4);

} // namespace

} // namespace orbisgrid::bench
