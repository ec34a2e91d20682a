#pragma once

#include "map/map_frame.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <vector>

namespace orbisgrid::test {

/// The shapes of a kind that have a role, in their order.
template <typename Shape>
std::vector<Shape> shapesOf(const Picture& picture, Role role) {
    std::vector<Shape> found;
    for (const Picture::Shape& shape : picture.shapes) {
        const Shape* one = std::get_if<Shape>(&shape);
        if (one && one->role == role)
            found.push_back(*one);
    }
    return found;
}

/// Whether a point is filled, by the even-odd rule.
inline bool isFilled(const std::vector<Picture::Polyline>& rings, Picture::Point point) {
    bool isInside = false;
    for (const Picture::Polyline& ring : rings) {
        for (std::size_t i = 0; i < ring.size(); ++i) {
            const Picture::Point a = ring[i], b = ring[(i + 1) % ring.size()];
            if ((a.y > point.y) == (b.y > point.y))
                continue;
            isInside ^= point.x < a.x + (point.y - a.y) / (b.y - a.y) * (b.x - a.x);
        }
    }
    return isInside;
}

/// Whether a point of the picture is filled with a role.
inline bool isFilled(const Picture& picture, Role role, Picture::Point point) {
    const auto areas = shapesOf<Picture::Area>(picture, role);
    return std::any_of(areas.begin(), areas.end(),
                       [&](const Picture::Area& area) { return isFilled(area.rings, point); });
}

inline double distanceBetween(Picture::Point one, Picture::Point other) {
    return std::hypot(one.x - other.x, one.y - other.y);
}

inline double distanceToEdge(Picture::Point point, Picture::Point a, Picture::Point b) {
    const double x = b.x - a.x, y = b.y - a.y;
    const double squared = x * x + y * y;
    const double along = squared > 0 ? ((point.x - a.x) * x + (point.y - a.y) * y) / squared : 0;
    const double part = std::clamp(along, 0.0, 1.0);
    return distanceBetween(point, {a.x + part * x, a.y + part * y});
}

/// How far a point of the picture is from a curve: where `valueAt` is 0. 0 next to the rim, where
/// nothing is on the other side.
inline double distanceToCurve(const MapFrame& frame, Picture::Point point,
                              const std::function<double(const Direction&)>& valueAt) {
    constexpr double step = 0.001;
    const auto valueBeside = [&](double x, double y) {
        const auto place = frame.placeAt({point.x + x, point.y + y});
        return place ? valueAt(directionOf(*place)) : std::nan("");
    };
    const double right = (valueBeside(step, 0) - valueBeside(-step, 0)) / (2 * step);
    const double down = (valueBeside(0, step) - valueBeside(0, -step)) / (2 * step);
    const double distance = std::fabs(valueBeside(0, 0)) / std::hypot(right, down);
    return std::isnan(distance) ? 0 : distance;
}

} // namespace orbisgrid::test
