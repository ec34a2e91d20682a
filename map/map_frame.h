#pragma once

#include "map/azimuthal.h"
#include "map/picture.h"

#include <optional>

namespace orbisgrid {

/// What part of the world a picture shows, and how large its texts are.
struct MapView {
    Position centre;                             ///< no number counts as 0 north 0 east
    double radiusKilometres = halfCircumference; ///< taken into 100 km up to the whole world
    double textSize = 14;                        ///< an em in picture units; taken into 4 to 100
};

/// Where places are in a picture. The map's circle is in the middle; around it is room for the
/// bearings.
class MapFrame {
public:
    static constexpr double leastKilometres = 100;

    explicit MapFrame(const MapView& view);

    /// Of a place, whether it is within the rim or beyond.
    [[nodiscard]] Picture::Point pointOf(Position place) const;

    /// Of a point of the plane, in kilometres.
    [[nodiscard]] Picture::Point pointOf(PlanePoint point) const;

    /// The place at a point of the picture; nothing outside of the rim.
    [[nodiscard]] std::optional<Position> placeAt(Picture::Point point) const;

    /// Whether a place is within the rim or on it.
    [[nodiscard]] bool shows(Position place) const;

    [[nodiscard]] const Azimuthal& projection() const { return m_projection; }

    [[nodiscard]] double kilometres() const { return m_kilometres; } ///< from the centre to the rim

    [[nodiscard]] double textSize() const { return m_textSize; }

    [[nodiscard]] double rim() const { return m_rim; } ///< its radius in picture units

    [[nodiscard]] double kilometresPerUnit() const { return m_kilometres / m_rim; }

    static constexpr Picture::Point middle{Picture::side / 2, Picture::side / 2};

private:
    Azimuthal m_projection;
    double m_kilometres;
    double m_textSize;
    double m_rim;
};

} // namespace orbisgrid
