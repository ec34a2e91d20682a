#include "map/direction.h"

#include <cmath>
#include <numbers>

namespace orbisgrid {

namespace {

constexpr double radian = std::numbers::pi / 180; // of a degree

} // namespace

Direction normalised(const Direction& direction) {
    const double length = std::sqrt(dot(direction, direction));
    return {direction.x / length, direction.y / length, direction.z / length};
}

Direction perpendicular(const Direction& direction) {
    // With the axis that lies farther away, so that the product is not close to nothing.
    const bool isPolar = std::fabs(direction.z) > 0.5;
    return normalised(cross(direction, isPolar ? Direction{1, 0, 0} : Direction{0, 0, 1}));
}

bool isPlace(Position position) {
    constexpr double most = 36000;
    return std::fabs(position.latitude) <= most && std::fabs(position.longitude) <= most;
}

double angleBetween(const Direction& one, const Direction& other) {
    const Direction product = cross(one, other);
    return std::atan2(std::sqrt(dot(product, product)), dot(one, other));
}

Direction directionOf(Position position) {
    const double latitude = position.latitude * radian;
    const double longitude = position.longitude * radian;
    const double cosine = std::cos(latitude);
    return {cosine * std::cos(longitude), cosine * std::sin(longitude), std::sin(latitude)};
}

Position positionOf(const Direction& direction) {
    return {std::atan2(direction.z, std::hypot(direction.x, direction.y)) / radian,
            std::atan2(direction.y, direction.x) / radian};
}

} // namespace orbisgrid
