#include "ui/contrast.h"

#include <algorithm>
#include <cmath>

namespace orbisgrid {

namespace {

/// Of one colour channel: what the value 0 to 1 of a pixel gives as light.
double lightOf(double value) {
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color) {
    return 0.2126 * lightOf(color.redF()) + 0.7152 * lightOf(color.greenF()) +
           0.0722 * lightOf(color.blueF());
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
