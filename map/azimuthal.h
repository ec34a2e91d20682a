#pragma once

#include "core/position.h"
#include "geodesy/great_circle.h"
#include "map/direction.h"

#include <numbers>
#include <optional>

namespace orbisgrid {

/// A point of the map's plane: kilometres from the centre.
struct PlanePoint {
    double x{}; ///< towards the east of the centre
    double y{}; ///< towards its north

    bool operator==(const PlanePoint&) const = default;
};

/// Kilometres to the antipode: the radius of a map of the whole world.
inline constexpr double halfCircumference = std::numbers::pi * earthRadius;

/// The azimuthal equidistant projection (J. P. Snyder, Map Projections, 1987, page 191) of the
/// sphere that all distances are of. Straight lines through the centre are great circles; distances
/// and azimuths from it are true.
///
/// A pole as centre has the directions of a place just short of it on its own meridian: from the
/// north pole with longitude 0, north (up) is longitude 180 and east is longitude 90; from the
/// south pole with longitude 0, up is longitude 0.
class Azimuthal {
public:
    explicit Azimuthal(Position centre);

    /// Where a place is on the plane. Double precision everywhere, close to the centre and to the
    /// antipode too. The antipode itself, which is a whole circle, is its northernmost point.
    [[nodiscard]] PlanePoint project(Position place) const;

    /// The place at a point; nothing beyond the antipode (farther than pi x 6367 km).
    [[nodiscard]] std::optional<Position> placeAt(PlanePoint point) const;

    [[nodiscard]] Position centre() const { return m_centre; }

    /// The axes of the centre: where its zenith, east and north point to.
    [[nodiscard]] const Direction& zenith() const { return m_zenith; }

    [[nodiscard]] const Direction& east() const { return m_east; }

    [[nodiscard]] const Direction& north() const { return m_north; }

private:
    Position m_centre;
    double m_sine, m_cosine;
    Direction m_zenith, m_east, m_north;
};

} // namespace orbisgrid
