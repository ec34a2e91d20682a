#pragma once

#include "map/map_frame.h"

#include <functional>
#include <span>
#include <vector>

namespace orbisgrid {

/// A part of a line that is within the rim.
struct RimChain {
    Picture::Polyline points;
    double startAzimuth{}, endAzimuth{}; ///< of what is at the rim: radians, -pi to pi
};

/// Takes lines on the sphere, whose edges are great circles, to the picture: cut at the rim, with
/// as many points as it needs to stay within `tolerance` of the true line.
///
/// One object takes either rings or lines.
class RimClip {
public:
    static constexpr double tolerance = 0.1; ///< picture units

    /// Whether a place lies inside of an area.
    using IsInside = std::function<bool(const Direction&)>;

    explicit RimClip(const MapFrame& frame);

    /// Adds a closed line of at least one point; its last point is joined to its first.
    void addRing(std::span<const Direction> places);

    /// Adds an open line of at least one point.
    void addLine(std::span<const Direction> places);

    /// What is to be drawn of the lines.
    [[nodiscard]] std::vector<Picture::Polyline> lines() &&;

    /// The rings that enclose the visible part of the area within the added rings, by the even-odd
    /// rule. Rings alone do not say on which side of them the area is: `isInside` is asked for
    /// places on the rim. Where they lie inside, the rim belongs to the outline; of a map of the
    /// whole world the rim is the antipode.
    [[nodiscard]] std::vector<Picture::Polyline> area(const IsInside& isInside) &&;

private:
    struct Vertex {
        Direction place;
        double up{};            ///< the cosine of the distance from the centre
        double east{}, north{}; ///< along the axes of the centre; these and what follows only
        double outwards{};      ///< within the rim. The sine of the distance
        double distance{};      ///< radians
        Picture::Point point;   ///< in the picture
        bool isInside{};
    };

    [[nodiscard]] Vertex vertexAt(const Direction& place) const;
    void locate(Vertex& vertex) const;
    void start(const Vertex& vertex);
    void walk(const Vertex& from, const Vertex& to);
    void walkAcross(const Vertex& from, const Vertex& to);
    void walkInside(const Vertex& from, const Vertex& to);
    [[nodiscard]] bool isStraight(const Vertex& from, const Vertex& to) const;
    void enter(const Vertex& crossing);
    void leave(const Vertex& crossing);
    [[nodiscard]] bool isArcInside(double from, double to, const IsInside& isInside) const;

    const MapFrame& m_frame;
    double m_reach; ///< the radius of the cap that is shown: radians
    double m_limit; ///< its cosine
    double m_unitsPerRadian;
    std::vector<RimChain> m_chains;
    std::vector<Picture::Polyline> m_whole; ///< rings that never meet the rim
    bool m_isOpen = false;                  ///< the last chain goes on
};

} // namespace orbisgrid
