#pragma once

#include "ui/contrast.h"

#include <QHash>
#include <QImage>
#include <QRect>

#include <algorithm>

namespace orbisgrid::test {

// Contrasts of what was drawn, pixel by pixel.

/// Of the edge of something that stands on `ground`: the least over its four sides, each looked at
/// in three places. A side is seen by the better of its two outermost pixels.
inline double edgeContrast(const QImage& image, const QRect& edge, const QColor& ground) {
    const auto seen = [&](QPoint outer, QPoint inward) {
        const QPoint inner = outer + inward;
        return std::max(contrast(image.pixelColor(outer), ground),
                        contrast(image.pixelColor(inner), ground));
    };
    double least = 21;
    for (const int quarter : {1, 2, 3}) {
        const int x = edge.left() + edge.width() * quarter / 4;
        const int y = edge.top() + edge.height() * quarter / 4;
        least = std::min({least, seen({x, edge.top()}, {0, 1}), seen({x, edge.bottom()}, {0, -1}),
                          seen({edge.left(), y}, {1, 0}), seen({edge.right(), y}, {-1, 0})});
    }
    return least;
}

/// Of a text or a symbol: what stands out most from the colour that most of the place has.
inline double inkContrast(const QImage& image, const QRect& place) {
    QHash<QRgb, int> counts;
    const QRect inside = place.intersected(image.rect());
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        for (int x = inside.left(); x <= inside.right(); ++x)
            ++counts[image.pixel(x, y)];
    }
    QRgb ground = 0;
    int most = 0;
    for (auto count = counts.constBegin(); count != counts.constEnd(); ++count) {
        if (count.value() > most) {
            most = count.value();
            ground = count.key();
        }
    }
    double best = 1;
    for (const QRgb color : counts.keys())
        best = std::max(best, contrast(color, ground));
    return best;
}

} // namespace orbisgrid::test
