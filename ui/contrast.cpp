#include "ui/contrast.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace orbisgrid {

namespace {

/// x to the power 2.4, for x from 0.09 to 1: its square times the fifth root of that, to which
/// Newton's method comes down from 1.
constexpr double toThePowerOf2Point4(double x) {
    const double square = x * x;
    double root = 1;
    constexpr int enough = 32;
    for (int step = 0; step < enough; ++step)
        root -= (root - square / (root * root * root * root)) / 5;
    return square * root;
}

/// Of one colour channel: what the value 0 to 1 of a pixel gives as light.
constexpr double lightOf(double value) {
    return value <= 0.04045 ? value / 12.92 : toThePowerOf2Point4((value + 0.055) / 1.055);
}

constexpr int mostOfAChannel = 255;

/// The light of each value that a pixel can have. Worked out by the compiler: the library's power
/// function and its tables would be the only ones of their kind that a start has to read.
constexpr auto lights = [] {
    std::array<double, mostOfAChannel + 1> all{};
    for (std::size_t value = 0; value < all.size(); ++value)
        all.at(value) = lightOf(double(value) / mostOfAChannel);
    return all;
}();

double luminance(const QColor& color) {
    const auto light = [](int value) { return lights.at(static_cast<std::size_t>(value)); };
    return 0.2126 * light(color.red()) + 0.7152 * light(color.green()) +
           0.0722 * light(color.blue());
}

QColor mixed(const QColor& from, const QColor& to, double share) {
    const auto part = [share](int a, int b) { return qRound(a + (b - a) * share); };
    return {part(from.red(), to.red()), part(from.green(), to.green()),
            part(from.blue(), to.blue())};
}

} // namespace

double contrast(const QColor& one, const QColor& other) {
    const double a = luminance(one) + 0.05;
    const double b = luminance(other) + 0.05;
    return std::max(a, b) / std::min(a, b);
}

QColor withContrast(const QColor& color, std::initializer_list<QColor> backgrounds, double least,
                    const DrawnAs& drawnAs) {
    const QColor& first = *backgrounds.begin();
    const QColor start = mixed(first, color, color.alphaF());
    constexpr int steps = 32;
    for (int step = 0; step <= steps; ++step) {
        for (const QColor& end : {QColor(Qt::white), QColor(Qt::black)}) {
            const QColor candidate = mixed(start, end, double(step) / steps);
            const QColor drawn = drawnAs(candidate);
            if (std::all_of(backgrounds.begin(), backgrounds.end(), [&](const QColor& background) {
                    return contrast(drawn, background) >= least;
                }))
                return candidate;
        }
    }
    return contrast(Qt::white, first) > contrast(Qt::black, first) ? Qt::white : Qt::black;
}

} // namespace orbisgrid
