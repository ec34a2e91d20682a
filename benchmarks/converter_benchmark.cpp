#include "benchmarks/cases.h"
#include "panels/converter.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <cstring>

namespace orbisgrid::bench {

namespace {

class NoMessages : public Messages {
public:
    void show(const Message&) override { std::abort(); }
};

/// The locator panel's OK from the locator's text to the texts of all five panels, as plain
/// characters: the same numbers, the same cuts, no box, no check and no message.
struct FloorTexts {
    std::array<char, 32> decLong{}, decLat{}, centreLong{}, centreLat{};
    std::array<char, 24> uiView{};
    std::array<char, 16> code{};
};

struct Sexagesimal {
    int degrees, minutes, seconds;
};

void floorNumberText(std::array<char, 32>& buffer, double value, int cut) {
    char* const end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                    std::chars_format::general, 7)
                          .ptr;
    *(end - cut) = '\0';
}

double floorNumber(const std::array<char, 32>& text) {
    double value = 0;
    std::from_chars(text.data(), text.data() + std::strlen(text.data()), value);
    return value;
}

Sexagesimal split(double value) {
    const double v = std::fabs(value);
    const double m = (v - std::floor(v)) * 60;
    return {static_cast<int>(v), static_cast<int>(m),
            static_cast<int>(std::round((m - std::floor(m)) * 60))};
}

char* twoDigits(char* place, int value) {
    *place++ = static_cast<char>('0' + value / 10);
    *place++ = static_cast<char>('0' + value % 10);
    return place;
}

void floorUIView(std::array<char, 24>& text, double latitude, double longitude) {
    const Sexagesimal lat = split(latitude);
    const Sexagesimal lon = split(longitude);
    char* place = text.data();
    *place++ = '=';
    place = twoDigits(twoDigits(place, lat.degrees), lat.minutes);
    *place++ = '.';
    place = twoDigits(place, lat.seconds);
    *place++ = latitude < 0 ? 'S' : 'N';
    *place++ = '/';
    *place++ = static_cast<char>('0' + lon.degrees / 100);
    place = twoDigits(twoDigits(place, lon.degrees % 100), lon.minutes);
    *place++ = '.';
    place = twoDigits(place, lon.seconds);
    *place++ = longitude < 0 ? 'W' : 'E';
    *place = '\0';
}

void floorGroup(char* place, double value) {
    auto rest = static_cast<int>(std::nearbyint(value));
    for (const int power : {91 * 91 * 91, 91 * 91, 91, 1}) {
        *place++ = static_cast<char>(rest / power + 33);
        rest %= power;
    }
}

FloorTexts floorChain(const std::string& c) {
    FloorTexts texts;
    const double lonCorner =
        static_cast<float>((((c[4] - 'A') / 24.0 + (c[2] - '0')) / 10 + (c[0] - 'A')) * 20 - 180);
    const double latCorner =
        static_cast<float>((((c[5] - 'A') / 24.0 + (c[3] - '0')) / 10 + (c[1] - 'A')) * 10 - 90);
    floorNumberText(texts.decLong, static_cast<float>(lonCorner + 5 / 120.0), 1);
    floorNumberText(texts.decLat, static_cast<float>(latCorner + 5 / 240.0), 1);
    floorNumberText(texts.centreLong,
                    (c[0] - 'A') * 20 - 180 + (c[2] - '0') * 2 + (c[4] - 64.5) / 12, 0);
    floorNumberText(texts.centreLat, (c[1] - 'A') * 10 - 90 + (c[3] - '0') + (c[5] - 64.5) / 24, 0);
    const double longitude = floorNumber(texts.decLong);
    const double latitude = floorNumber(texts.decLat);
    floorUIView(texts.uiView, latitude, longitude);
    std::memcpy(texts.code.data(), "=/........-  B", 15);
    floorGroup(texts.code.data() + 2, static_cast<float>((90 - latitude) * 380926));
    floorGroup(texts.code.data() + 6, std::floor((longitude + 180) * 190463));
    return texts;
}

bool isSame(TextView program, const char* floor) {
    return toUtf8(program) == floor;
}

const RegisterCheck agrees("locator chain", [](const Case& one, const Case&) {
    NoMessages messages;
    FormTexts texts;
    Converter converter;
    converter.txtLocator.set(one.six);
    converter.cmdOKLocator_Click(texts, messages);
    const FloorTexts floor = floorChain(one.narrowSix);
    return isSame(trimmed(converter.txtDecLong.text()), floor.decLong.data()) &&
           isSame(trimmed(converter.txtDecLat.text()), floor.decLat.data()) &&
           isSame(converter.txtUIView.text(), floor.uiView.data()) &&
           isSame(converter.lblCompressed, floor.code.data()) &&
           isSame(TextView(texts.LonText).substr(0, texts.LonText.size() - 1),
                  floor.centreLong.data());
});

void LocatorChain(benchmark::State& state) {
    NoMessages messages;
    FormTexts texts;
    Converter converter;
    overCases(state, [&](const Case& one, std::size_t) {
        converter.txtLocator.set(one.six);
        converter.cmdOKLocator_Click(texts, messages);
        return converter.lblCompressed.data();
    });
}

void LocatorChainFloor(benchmark::State& state) {
    overCases(state, [](const Case& one, std::size_t) { return floorChain(one.narrowSix); });
}

BENCHMARK(LocatorChain);
BENCHMARK(LocatorChainFloor);
const RegisterGoal goal("LocatorChain", "LocatorChainFloor", 2.5);

} // namespace

} // namespace orbisgrid::bench
