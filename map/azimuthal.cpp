#include "map/azimuthal.h"

#include <cmath>

namespace orbisgrid {

namespace {

constexpr double radian = std::numbers::pi / 180; // of a degree

/// Beyond this cosine of the distance (0.8 degrees) from the centre or from the antipode the
/// difference of two products leaves too few digits for the direction; there it is worked out from
/// differences in degrees, which are exact.
constexpr double closeBy = 0.9999;

/// Closer to the antipode (6 micrometres) a direction would be that of rounding errors.
constexpr double noDirection = 1e-12;

} // namespace

Azimuthal::Azimuthal(Position centre)
    : m_centre(centre)
    , m_sine(std::sin(centre.latitude * radian))
    , m_cosine(std::cos(centre.latitude * radian))
    , m_zenith(directionOf(centre)) {
    const double longitude = centre.longitude * radian;
    const double sine = std::sin(longitude), cosine = std::cos(longitude);
    m_east = {-sine, cosine, 0};
    m_north = {-m_sine * cosine, -m_sine * sine, m_cosine};
}

PlanePoint Azimuthal::project(Position place) const {
    const double latitude = place.latitude * radian;
    const double apart = place.longitude - m_centre.longitude;
    const double half = apart * (radian / 2);
    const double sine = std::sin(latitude), cosine = std::cos(latitude);
    const double sineHalf = std::sin(half);
    double cosineHalf = std::cos(half);
    const double alongParallel = 1 - 2 * sineHalf * sineHalf;
    const double up = m_sine * sine + m_cosine * cosine * alongParallel;
    double y = m_cosine * sine - m_sine * cosine * alongParallel;
    if (up > closeBy) {
        y = std::sin((place.latitude - m_centre.latitude) * radian) +
            2 * m_sine * cosine * sineHalf * sineHalf;
    } else if (up < -closeBy) {
        cosineHalf = std::sin((180 - std::fabs(apart)) * (radian / 2));
        y = std::sin((place.latitude + m_centre.latitude) * radian) -
            2 * m_sine * cosine * cosineHalf * cosineHalf;
    }
    const double x = 2 * cosine * sineHalf * cosineHalf;
    const double length = std::sqrt(x * x + y * y);
    const double kilometres = earthRadius * std::atan2(length, up);
    if (length == 0 || (length < noDirection && up < 0))
        return {0, kilometres};
    return {x * (kilometres / length), y * (kilometres / length)};
}

std::optional<Position> Azimuthal::placeAt(PlanePoint point) const {
    const double kilometres = std::hypot(point.x, point.y);
    if (!(kilometres <= halfCircumference))
        return std::nullopt;
    if (kilometres == 0) {
        // To the last bit where it can be: a place there is Home itself.
        const bool isInRange =
            std::fabs(m_centre.latitude) <= 90 && std::fabs(m_centre.longitude) <= 180;
        return isInRange ? m_centre : positionOf(m_zenith);
    }
    const double angle = kilometres / earthRadius;
    const double outwards = std::sin(angle) / kilometres;
    const Direction across = combined(m_east, point.x * outwards, m_north, point.y * outwards);
    return positionOf(combined(m_zenith, std::cos(angle), across, 1));
}

} // namespace orbisgrid
