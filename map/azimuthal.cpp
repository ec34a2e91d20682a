#include "map/azimuthal.h"

#include <cmath>

namespace orbisgrid {

namespace {

constexpr double radian = std::numbers::pi / 180; // of a degree

/// Beyond this cosine of the distance from the centre (or from the antipode: 0.8 degrees) the
/// difference of two products leaves too few digits for the direction.
constexpr double closeBy = 0.9999;

} // namespace

Azimuthal::Azimuthal(Position centre)
    : m_centre(centre)
    , m_latitude(centre.latitude * radian)
    , m_sine(std::sin(m_latitude))
    , m_cosine(std::cos(m_latitude))
    , m_zenith(directionOf(centre)) {
    const double longitude = centre.longitude * radian;
    const double sine = std::sin(longitude), cosine = std::cos(longitude);
    m_east = {-sine, cosine, 0};
    m_north = {-m_sine * cosine, -m_sine * sine, m_cosine};
}

PlanePoint Azimuthal::project(Position place) const {
    const double latitude = place.latitude * radian;
    const double half = (place.longitude - m_centre.longitude) * (radian / 2);
    const double sine = std::sin(latitude), cosine = std::cos(latitude);
    const double sineHalf = std::sin(half), cosineHalf = std::cos(half);
    const double alongParallel = 1 - 2 * sineHalf * sineHalf;
    const double x = 2 * cosine * sineHalf * cosineHalf;
    const double up = m_sine * sine + m_cosine * cosine * alongParallel;
    double y = m_cosine * sine - m_sine * cosine * alongParallel;
    if (up > closeBy)
        y = std::sin(latitude - m_latitude) + 2 * m_sine * cosine * sineHalf * sineHalf;
    else if (up < -closeBy)
        y = std::sin(latitude + m_latitude) - 2 * m_sine * cosine * cosineHalf * cosineHalf;
    const double length = std::sqrt(x * x + y * y);
    const double kilometres = earthRadius * std::atan2(length, up);
    if (length == 0)
        return {0, kilometres};
    return {x * (kilometres / length), y * (kilometres / length)};
}

std::optional<Position> Azimuthal::placeAt(PlanePoint point) const {
    const double kilometres = std::hypot(point.x, point.y);
    if (!(kilometres <= halfCircumference))
        return std::nullopt;
    if (kilometres == 0)
        return positionOf(m_zenith);
    const double angle = kilometres / earthRadius;
    const double outwards = std::sin(angle) / kilometres;
    const Direction across = combined(m_east, point.x * outwards, m_north, point.y * outwards);
    return positionOf(combined(m_zenith, std::cos(angle), across, 1));
}

} // namespace orbisgrid
