#include "map/locator_lines.h"

#include "core/locator_grid.h"
#include "core/maidenhead.h"
#include "map/rim_clip.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace orbisgrid {

namespace {

constexpr double pi = std::numbers::pi;
constexpr double radian = pi / 180; // of a degree

/// The size of the cells, and how much of the sphere the map shows of them: whole degrees.
struct Cells {
    int width, height;
    int south, north; ///< latitudes
    int west, east;   ///< longitudes; a whole turn where a pole is shown

    static Cells of(const MapFrame& frame);
};

int downTo(double value, int step) {
    return static_cast<int>(std::floor(value / step)) * step;
}

int upTo(double value, int step) {
    return static_cast<int>(std::ceil(value / step)) * step;
}

Cells Cells::of(const MapFrame& frame) {
    const bool areFields = gridLevelOf(frame) == GridLevel::fields;
    const auto width = static_cast<int>(areFields ? fieldLongitude : squareLongitude);
    const auto height = static_cast<int>(areFields ? fieldLatitude : squareLatitude);
    const Position centre = positionOf(frame.projection().zenith());
    const double reach = frame.kilometres() / earthRadius / radian;
    const int south = std::max(-90, downTo(centre.latitude - reach, height));
    const int north = std::min(90, upTo(centre.latitude + reach, height));
    // Where the rim touches a meridian, its longitude is this far from the centre's.
    double across = 180;
    if (south > -90 && north < 90)
        across = std::asin(std::sin(reach * radian) / std::cos(centre.latitude * radian)) / radian;
    const int west = downTo(centre.longitude - across, width);
    const int east = upTo(centre.longitude + across, width);
    return {width, height, south, north, west, std::min(east, west + 360)};
}

/// Up to which latitude the meridians between the fields are drawn.
int lastLatitude(const MapFrame& frame, const Cells& cells) {
    constexpr double leastApart = 4; ///< picture units
    const double degrees = leastApart * frame.kilometresPerUnit() / earthRadius / radian;
    return downTo(std::acos(degrees / cells.width) / radian, 1);
}

struct Latitudes {
    int south, north;
};

void addMeridian(RimClip& clip, int longitude, Latitudes latitudes) {
    constexpr int step = 45; // the clip puts points between
    std::vector<Direction> places;
    for (int latitude = latitudes.south; latitude < latitudes.north; latitude += step)
        places.push_back(
            directionOf({static_cast<double>(latitude), static_cast<double>(longitude)}));
    places.push_back(
        directionOf({static_cast<double>(latitudes.north), static_cast<double>(longitude)}));
    clip.addLine(places);
}

/// A parallel is no great circle, and the clip joins places by great circles.
class Parallel {
public:
    Parallel(const MapFrame& frame, double latitude)
        : m_zenith(frame.projection().zenith())
        , m_unitsPerRadian(earthRadius / frame.kilometresPerUnit())
        , m_latitude(latitude)
        , m_bulge(std::fabs(std::sin(2 * latitude * radian)) / 16) {}

    /// From the west of the cells to their east.
    std::vector<Direction> places(const Cells& cells) {
        m_places.assign(1, directionOf({m_latitude, static_cast<double>(cells.west)}));
        for (int west = cells.west; west < cells.east; west += cells.width)
            add(west, west + cells.width);
        return std::move(m_places);
    }

private:
    /// The height of the arc between the parallel and the great circle is an eighth of the square
    /// of the longitudes between, times sine and cosine of the latitude; the map stretches it.
    void add(double from, double to) {
        const Direction end = directionOf({m_latitude, to});
        const Direction middle = directionOf({m_latitude, (from + to) / 2});
        const double turn = (to - from) * radian;
        const double halfLength = turn / 2 * std::cos(m_latitude * radian);
        const double distance = std::min(pi, angleBetween(middle, m_zenith) + halfLength);
        const double height = m_bulge * turn * turn * m_unitsPerRadian;
        // distance / sine is the stretch
        if (height * distance <= RimClip::tolerance * std::sin(distance)) {
            m_places.push_back(end);
            return;
        }
        add(from, (from + to) / 2);
        add((from + to) / 2, to);
    }

    Direction m_zenith;
    double m_unitsPerRadian;
    double m_latitude;
    double m_bulge;
    std::vector<Direction> m_places;
};

Text cellName(GridLevel level, Position middle) {
    return locatorOf(middle).substr(0, level == GridLevel::fields ? 2 : 4);
}

/// A cell by its middle.
struct Cell {
    Position middle;
    double distance; ///< from the centre: units
};

std::vector<Cell> seenCells(const MapFrame& frame, const Cells& cells) {
    std::vector<Cell> seen;
    for (int south = cells.south; south < cells.north; south += cells.height) {
        for (int west = cells.west; west < cells.east; west += cells.width) {
            const Position middle{south + cells.height / 2.0,
                                  std::remainder(west + cells.width / 2.0, 360)};
            const Picture::Point point = frame.pointOf(middle);
            const double distance =
                std::hypot(point.x - MapFrame::middle.x, point.y - MapFrame::middle.y);
            if (distance <= frame.rim())
                seen.push_back({middle, distance});
        }
    }
    std::stable_sort(seen.begin(), seen.end(), [](const Cell& one, const Cell& other) {
        return one.distance < other.distance;
    });
    return seen;
}

} // namespace

GridLevel gridLevelOf(const MapFrame& frame) {
    constexpr double leastForFields = 1500; // km
    return frame.kilometres() >= leastForFields ? GridLevel::fields : GridLevel::squares;
}

Picture::Lines gridOf(const MapFrame& frame) {
    RimClip clip(frame);
    const Cells cells = Cells::of(frame);
    const int last = lastLatitude(frame, cells);
    // Without the last of both: of a whole turn it is the first one again, and a pole has no
    // parallel; otherwise it lies beyond the rim.
    for (int longitude = cells.west; longitude < cells.east; longitude += cells.width) {
        const bool isOfField = longitude % static_cast<int>(fieldLongitude) == 0;
        const int south = isOfField ? cells.south : std::max(cells.south, -last);
        const int north = isOfField ? cells.north : std::min(cells.north, last);
        if (south < north)
            addMeridian(clip, longitude, {south, north});
    }
    for (int latitude = cells.south; latitude < cells.north; latitude += cells.height) {
        if (latitude > -90)
            clip.addLine(Parallel(frame, latitude).places(cells));
    }
    return {Role::grid, std::move(clip).lines()};
}

std::vector<std::vector<Picture::Label>> gridLabels(const MapFrame& frame) {
    constexpr std::array<Position, 5> parts{
        {{0, 0}, {0.25, -0.25}, {-0.25, 0.25}, {0.25, 0.25}, {-0.25, -0.25}}}; // of a cell
    const Cells cells = Cells::of(frame);
    const GridLevel level = gridLevelOf(frame);
    std::vector<std::vector<Picture::Label>> labels;
    for (const Cell& cell : seenCells(frame, cells)) {
        const Text name = cellName(level, cell.middle);
        auto& places = labels.emplace_back();
        for (const Position& part : parts) {
            const Position place{cell.middle.latitude + part.latitude * cells.height,
                                 cell.middle.longitude + part.longitude * cells.width};
            places.push_back(
                centredLabel(Role::gridLabel, frame.pointOf(place), 0.75 * frame.textSize(), name));
        }
    }
    return labels;
}

} // namespace orbisgrid
