#include "benchmarks/cases.h"
#include "core/maidenhead.h"
#include "geodesy/great_circle.h"
#include "geodesy/locator_check.h"

#include <array>
#include <charconv>
#include <cmath>

namespace orbisgrid::bench {

namespace {

// Decoding to two numbers -----------------------------------------------------------------------

Position decodeSix(const Case& one) {
    return pointOf(*checkedHome(one.six));
}

/// No check, no case: the formula alone.
Position floorDecodeSix(const Case& one) {
    const std::string& c = one.narrowSix;
    return {static_cast<float>((c[1] - 'A') * 10 - 90 + (c[3] - '0') + (c[5] - 64.5) / 24),
            static_cast<float>((c[0] - 'A') * 20 - 180 + (c[2] - '0') * 2 + (c[4] - 64.5) / 12)};
}

const RegisterCheck decodes("decoding six characters", [](const Case& one, const Case&) {
    return decodeSix(one) == floorDecodeSix(one);
});

void DecodeSix(benchmark::State& state) {
    overCases(state, [](const Case& one, std::size_t) { return decodeSix(one); });
}

void DecodeSixFloor(benchmark::State& state) {
    overCases(state, [](const Case& one, std::size_t) { return floorDecodeSix(one); });
}

BENCHMARK(DecodeSix);
BENCHMARK(DecodeSixFloor);
const RegisterGoal decodeGoal("DecodeSix", "DecodeSixFloor", 4);

// Decoding to texts -----------------------------------------------------------------------------

void DecodeSixTexts(benchmark::State& state) {
    overCases(state, [](const Case& one, std::size_t) {
        Text locator = one.six;
        return Maiden2World(locator);
    });
}

/// Two numbers of seven digits into a buffer, and nothing around it.
struct TwoTexts {
    std::array<char, 64> buffer{};
    char* end = nullptr;
};

TwoTexts floorTexts(const Case& one) {
    const Position point = floorDecodeSix(one);
    TwoTexts texts;
    char* const last = texts.buffer.data() + texts.buffer.size();
    char* middle =
        std::to_chars(texts.buffer.data(), last, point.longitude, std::chars_format::general, 7)
            .ptr;
    texts.end = std::to_chars(middle, last, point.latitude, std::chars_format::general, 7).ptr;
    return texts;
}

const RegisterCheck texts("texts of six characters", [](const Case& one, const Case&) {
    Text locator = one.six;
    const LocatorPosition program = Maiden2World(locator);
    const double longitude = std::stod(toUtf8(program.LonText));
    const double latitude = std::stod(toUtf8(program.LatText));
    return std::fabs(longitude - floorDecodeSix(one).longitude) < 0.00006 &&
           std::fabs(latitude - floorDecodeSix(one).latitude) < 0.00006;
});

void DecodeSixTextsFloor(benchmark::State& state) {
    overCases(state, [](const Case& one, std::size_t) { return floorTexts(one); });
}

BENCHMARK(DecodeSixTexts);
BENCHMARK(DecodeSixTextsFloor);
const RegisterGoal textsGoal("DecodeSixTexts", "DecodeSixTextsFloor", 1.5);

// Encoding --------------------------------------------------------------------------------------

using SixCharacters = std::array<char, 6>;

/// Rounding towards minus infinity is part of the arithmetic: positions west and south of the world
/// have their letters too.
SixCharacters floorEncodeSix(const Case& one) {
    const double x = (one.position.longitude + 180) / 20;
    const double y = (one.position.latitude + 90) / 10;
    const double a = std::floor(x);
    const double b = std::floor(y);
    const double x10 = (x - a) * 10;
    const double y10 = (y - b) * 10;
    const double c = std::floor(x10);
    const double d = std::floor(y10);
    return {static_cast<char>('A' + static_cast<int>(a)),
            static_cast<char>('A' + static_cast<int>(b)),
            static_cast<char>('0' + static_cast<int>(c)),
            static_cast<char>('0' + static_cast<int>(d)),
            static_cast<char>('A' + static_cast<int>(std::floor((x10 - c) * 24))),
            static_cast<char>('A' + static_cast<int>(std::floor((y10 - d) * 24)))};
}

Text encodeSix(const Case& one) {
    return locatorOf(one.position);
}

const RegisterCheck encodes("encoding six characters", [](const Case& one, const Case&) {
    const SixCharacters floor = floorEncodeSix(one);
    const Text program = encodeSix(one);
    return program == one.six && std::equal(floor.begin(), floor.end(), program.begin());
});

void EncodeSix(benchmark::State& state) {
    overCases(state, [](const Case& one, std::size_t) { return encodeSix(one); });
}

void EncodeSixFloor(benchmark::State& state) {
    overCases(state, [](const Case& one, std::size_t) { return floorEncodeSix(one); });
}

BENCHMARK(EncodeSix);
BENCHMARK(EncodeSixFloor);
const RegisterGoal encodeGoal("EncodeSix", "EncodeSixFloor", 3);

} // namespace

} // namespace orbisgrid::bench
