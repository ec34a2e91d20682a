#include "map/map_frame.h"

#include <algorithm>
#include <cmath>

namespace orbisgrid {

namespace {

constexpr double tickAndGap = 12;
constexpr double bearingWidth = 2.9; ///< em, of "330°"
constexpr double leastRim = 300;

Position placeOrNone(Position place) {
    return isPlace(place) ? place : Position{};
}

/// Of a value that is no number the default.
double within(double low, double value, double high, double otherwise) {
    return std::isnan(value) ? otherwise : std::clamp(value, low, high);
}

} // namespace

MapFrame::MapFrame(const MapView& view)
    : m_projection(placeOrNone(view.centre))
    , m_kilometres(
          within(leastKilometres, view.radiusKilometres, halfCircumference, halfCircumference))
    , m_textSize(within(4, view.textSize, 100, MapView{}.textSize))
    , m_rim(std::max(leastRim, Picture::side / 2 - tickAndGap - bearingWidth * m_textSize)) {}

Picture::Point MapFrame::pointOf(PlanePoint point) const {
    const double scale = m_rim / m_kilometres;
    return {middle.x + point.x * scale, middle.y - point.y * scale};
}

Picture::Point MapFrame::pointOf(Position place) const {
    return pointOf(m_projection.project(place));
}

std::optional<Position> MapFrame::placeAt(Picture::Point point) const {
    const double scale = kilometresPerUnit();
    const PlanePoint plane{(point.x - middle.x) * scale, (middle.y - point.y) * scale};
    if (!(std::hypot(plane.x, plane.y) <= m_kilometres))
        return std::nullopt;
    return m_projection.placeAt(plane);
}

bool MapFrame::shows(Position place) const {
    const PlanePoint point = m_projection.project(place);
    return std::hypot(point.x, point.y) <= m_kilometres;
}

} // namespace orbisgrid
