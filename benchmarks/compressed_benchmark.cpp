#include "aprs/compressed.h"
#include "benchmarks/cases.h"
#include "core/number_text.h"

#include <array>
#include <charconv>
#include <cmath>

namespace orbisgrid::bench {

namespace {

using Code = std::array<char, 14>;

double floorNumber(const std::string& text) {
    double value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

void floorGroup(Code& code, std::size_t place, double value) {
    auto rest = static_cast<int>(std::nearbyint(value));
    constexpr std::array<int, 4> powers{91 * 91 * 91, 91 * 91, 91, 1};
    for (std::size_t i = 0; i < powers.size(); ++i) {
        code[place + i] = static_cast<char>(rest / powers[i] + 33);
        rest %= powers[i];
    }
}

Code floorCode(const std::string& longitude, const std::string& latitude) {
    Code code{'=', '/', 0, 0, 0, 0, 0, 0, 0, 0, '-', ' ', ' ', 'B'};
    floorGroup(code, 2, static_cast<float>((90 - floorNumber(latitude)) * 380926));
    floorGroup(code, 6, std::floor((floorNumber(longitude) + 180) * 190463));
    return code;
}

Text code(const Case& one) {
    return compressedText({leadingNumber(one.decLat), leadingNumber(one.decLong)});
}

/// The boxes' texts as the floor reads them, made before the clock runs.
const std::vector<std::pair<std::string, std::string>>& narrowBoxes() {
    static const auto boxes = [] {
        std::vector<std::pair<std::string, std::string>> texts;
        for (const Case& one : cases())
            texts.emplace_back(toUtf8(one.decLong), toUtf8(one.decLat));
        return texts;
    }();
    return boxes;
}

const RegisterCheck agrees("compressed texts", [](const Case& one, const Case&) {
    const Code floor = floorCode(toUtf8(one.decLong), toUtf8(one.decLat));
    const Text program = code(one);
    return std::equal(floor.begin(), floor.end(), program.begin(), program.end());
});

void Compressed(benchmark::State& state) {
    overCases(state, [](const Case& one, std::size_t) { return code(one); });
}

void CompressedFloor(benchmark::State& state) {
    narrowBoxes();
    overCases(state, [](const Case&, std::size_t i) {
        const auto& [longitude, latitude] = narrowBoxes()[i];
        return floorCode(longitude, latitude);
    });
}

BENCHMARK(Compressed);
BENCHMARK(CompressedFloor);
const RegisterGoal goal("Compressed", "CompressedFloor", 2.5);

} // namespace

} // namespace orbisgrid::bench
