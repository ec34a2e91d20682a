#include "tests/proof/coast_reference.h"

#include <cmath>
#include <numbers>

namespace orbisgrid::test {

namespace {

constexpr int stripsInDegree = 4;
constexpr int strips = 360 * stripsInDegree;
constexpr double radian = std::numbers::pi / 180; // of a degree

int stripOf(double longitude) {
    const int strip = static_cast<int>(std::floor((longitude + 180) * stripsInDegree));
    return ((strip % strips) + strips) % strips;
}

} // namespace

CoastReference::CoastReference(const Outlines& outlines)
    : m_strips(strips) {
    for (const Outlines::Line& coast : outlines.coasts()) {
        const auto points = outlines.pointsOf(coast);
        for (std::size_t i = 0; i < points.size(); ++i)
            add(positionOf(points[i]), positionOf(points[(i + 1) % points.size()]));
    }
}

void CoastReference::add(Position from, Position to) {
    double span = std::remainder(to.longitude - from.longitude, 360);
    if (span < 0) {
        std::swap(from, to);
        span = -span;
    }
    const Edge edge{from.longitude, from.longitude + span, std::tan(from.latitude * radian),
                    std::tan(to.latitude * radian)};
    const int first = static_cast<int>(std::floor((edge.west + 180) * stripsInDegree));
    const int last = static_cast<int>(std::floor((edge.east + 180) * stripsInDegree));
    for (int strip = first; strip <= last; ++strip)
        m_strips[static_cast<std::size_t>(((strip % strips) + strips) % strips)].push_back(edge);
}

bool CoastReference::isLand(Position place) const {
    bool isInside = true;
    for (const Edge& edge : m_strips[static_cast<std::size_t>(stripOf(place.longitude))]) {
        double longitude = place.longitude;
        while (longitude < edge.west)
            longitude += 360;
        while (longitude >= edge.west + 360)
            longitude -= 360;
        if (longitude >= edge.east)
            continue;
        // The great circle's latitude at this longitude.
        const double tangent = (edge.westTangent * std::sin((edge.east - longitude) * radian) +
                                edge.eastTangent * std::sin((longitude - edge.west) * radian)) /
                               std::sin((edge.east - edge.west) * radian);
        isInside ^= tangent < std::tan(place.latitude * radian);
    }
    return isInside;
}

} // namespace orbisgrid::test
