#include "map/rim_clip.h"

#include "map/rim_links.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <numbers>

namespace orbisgrid {

namespace {

constexpr double pi = std::numbers::pi;

/// A map of the whole world ends this far before the antipode (6 m), so that lines which meet there
/// are cut like others.
constexpr double beforeAntipode = 1e-6;

double squaredChord(const Direction& a, const Direction& b) {
    const Direction difference = combined(a, 1, b, -1);
    return dot(difference, difference);
}

/// The great circle that an edge lies on: `start` at 0, `ahead` a quarter of a circle on.
struct EdgeCircle {
    Direction start, ahead;
    double length; ///< of the edge: radians

    EdgeCircle(const Direction& from, const Direction& to)
        : start(from) {
        const Direction normal = cross(from, to);
        const double sine = std::sqrt(dot(normal, normal));
        length = std::atan2(sine, dot(from, to));
        ahead = sine > 0 ? normalised(cross(normal, from)) : perpendicular(from);
    }

    Direction at(double angle) const {
        return combined(start, std::cos(angle), ahead, std::sin(angle));
    }
};

/// Where a great circle leaves and enters a cap: angles from its start on, 0 up to 2 pi.
struct CapCrossings {
    double leaves, enters;
    bool areReal; ///< the circle does not stay on one side
};

double wrapped(double angle) {
    constexpr double rounding = 1e-9;
    return angle - 2 * pi * std::floor((angle + rounding) / (2 * pi));
}

CapCrossings crossingsOf(const EdgeCircle& circle, const Direction& middle, double limit) {
    const double atStart = dot(circle.start, middle), ahead = dot(circle.ahead, middle);
    const double most = std::hypot(atStart, ahead);
    const double highest = std::atan2(ahead, atStart);
    const double away = std::acos(std::clamp(limit / most, -1.0, 1.0));
    return {wrapped(highest + away), wrapped(highest - away), std::fabs(limit) < most};
}

} // namespace

RimClip::RimClip(const MapFrame& frame)
    : m_frame(frame)
    , m_reach(std::min(frame.kilometres() / earthRadius, pi - beforeAntipode))
    , m_limit(std::cos(m_reach))
    , m_unitsPerRadian(earthRadius / frame.kilometresPerUnit()) {}

RimClip::Vertex RimClip::vertexAt(const Direction& place) const {
    Vertex vertex;
    vertex.place = place;
    vertex.up = dot(place, m_frame.projection().zenith());
    vertex.isInside = vertex.up >= m_limit;
    if (vertex.isInside)
        locate(vertex);
    return vertex;
}

void RimClip::locate(Vertex& vertex) const {
    vertex.east = dot(vertex.place, m_frame.projection().east());
    vertex.north = dot(vertex.place, m_frame.projection().north());
    vertex.outwards = std::sqrt(vertex.east * vertex.east + vertex.north * vertex.north);
    vertex.distance = std::atan2(vertex.outwards, vertex.up);
    const double scale =
        vertex.outwards > 0 ? m_unitsPerRadian * vertex.distance / vertex.outwards : 0;
    vertex.point = {MapFrame::middle.x + vertex.east * scale,
                    MapFrame::middle.y - vertex.north * scale};
}

void RimClip::start(const Vertex& vertex) {
    m_isOpen = vertex.isInside;
    if (m_isOpen)
        m_chains.emplace_back().points.push_back(vertex.point);
}

void RimClip::addLine(std::span<const Direction> places) {
    Vertex previous = vertexAt(places.front());
    start(previous);
    if (m_isOpen)
        m_chains.back().points.reserve(places.size()); // most edges are straight
    for (const Direction& place : places.subspan(1)) {
        const Vertex next = vertexAt(place);
        walk(previous, next);
        previous = next;
    }
}

void RimClip::addRing(std::span<const Direction> places) {
    const std::size_t firstChain = m_chains.size();
    const Vertex first = vertexAt(places.front());
    addLine(places);
    if (places.size() > 1)
        walk(vertexAt(places.back()), first);
    if (!m_isOpen)
        return;
    // It ends where it began, within the rim.
    Picture::Polyline points = std::move(m_chains.back().points);
    if (points.size() > 1)
        points.pop_back();
    if (m_chains.size() == firstChain + 1) {
        m_whole.push_back(std::move(points));
    } else {
        RimChain& chain = m_chains[firstChain];
        chain.startAzimuth = m_chains.back().startAzimuth;
        chain.points.insert(chain.points.begin(), points.begin(), points.end());
    }
    m_chains.pop_back();
}

void RimClip::walk(const Vertex& from, const Vertex& to) {
    constexpr double nearlyOpposite = 3.99; // the square of the diameter is 4
    const double chord = squaredChord(from.place, to.place);
    if (chord > nearlyOpposite) {
        // Any great circle joins opposite places.
        const Vertex between = vertexAt(perpendicular(from.place));
        walk(from, between);
        walk(between, to);
        return;
    }
    // From one to the rim and on to the other takes the sum of both at least, as the cosine changes
    // less than the angle; the sum of two is at least twice the root of their product, and an arc
    // is shorter than two chords. On different sides of the rim the product is negative.
    if ((from.up - m_limit) * (to.up - m_limit) <= chord)
        walkAcross(from, to);
    else if (from.isInside)
        walkInside(from, to);
}

void RimClip::walkAcross(const Vertex& from, const Vertex& to) {
    const EdgeCircle circle(from.place, to.place);
    const CapCrossings crossings = crossingsOf(circle, m_frame.projection().zenith(), m_limit);
    const auto vertexOf = [&](double angle) {
        Vertex vertex = vertexAt(circle.at(std::clamp(angle, 0.0, circle.length)));
        locate(vertex); // rounding may have put it beyond the rim
        vertex.isInside = true;
        return vertex;
    };
    const bool isOneSided = from.isInside == to.isInside;
    const double first = from.isInside ? crossings.leaves : crossings.enters;
    const double second = from.isInside ? crossings.enters : crossings.leaves;
    if (isOneSided && !(crossings.areReal && first < second && second < circle.length)) {
        if (from.isInside)
            walkInside(from, to);
        return;
    }
    const Vertex one = vertexOf(first);
    const Vertex other = isOneSided ? vertexOf(second) : to;
    if (from.isInside) {
        walkInside(from, one);
        leave(one);
        if (isOneSided) {
            enter(other);
            walkInside(other, to);
        }
    } else {
        enter(one);
        walkInside(one, other);
        if (isOneSided)
            leave(other);
    }
}

bool RimClip::isStraight(const Vertex& from, const Vertex& to) const {
    const Vertex& farther = from.distance > to.distance ? from : to;
    const double chord = squaredChord(from.place, to.place);
    // The image of a great circle bends by at most 1.155 (d - sin d cos d) / sin² d for a radian;
    // by a quarter more at the end of an edge that is straight by this bound, as it is short beside
    // its distance from the antipode (a twentieth). An arc's height is an eighth of that.
    const double bend = farther.distance - farther.outwards * farther.up;
    // So that halving ends, an edge whose ends are no numbers is straight.
    return !(1.155 * 1.25 / 8 * chord * m_unitsPerRadian * bend >
             tolerance * farther.outwards * farther.outwards);
}

void RimClip::walkInside(const Vertex& from, const Vertex& to) {
    if (isStraight(from, to)) {
        m_chains.back().points.push_back(to.point);
        return;
    }
    Vertex middle = vertexAt(normalised(combined(from.place, 1, to.place, 1)));
    locate(middle); // rounding may have put it beyond the rim
    walkInside(from, middle);
    walkInside(middle, to);
}

void RimClip::enter(const Vertex& crossing) {
    start(crossing);
    m_chains.back().startAzimuth = std::atan2(crossing.east, crossing.north);
}

void RimClip::leave(const Vertex& crossing) {
    m_chains.back().endAzimuth = std::atan2(crossing.east, crossing.north);
    m_isOpen = false;
}

std::vector<Picture::Polyline> RimClip::lines() && {
    std::vector<Picture::Polyline> result;
    result.reserve(m_chains.size());
    for (RimChain& chain : m_chains)
        result.push_back(std::move(chain.points));
    return result;
}

bool RimClip::isArcInside(double from, double to, const IsInside& isInside) const {
    const Azimuthal& projection = m_frame.projection();
    constexpr std::array parts{0.25, 0.5, 0.75};
    const auto count = std::count_if(parts.begin(), parts.end(), [&](double part) {
        const double azimuth = from + (to - from) * part;
        const Direction across =
            combined(projection.east(), std::sin(azimuth), projection.north(), std::cos(azimuth));
        return isInside(combined(projection.zenith(), m_limit, across, std::sin(m_reach)));
    });
    return count >= 2; // an islet that was too small to be added holds one at most
}

std::vector<Picture::Polyline> RimClip::area(const IsInside& isInside) && {
    const RimLinks links(m_chains, m_reach * m_unitsPerRadian);
    const RimLinks::Arc arc = links.widestArc();
    std::vector<Picture::Polyline> result = links.rings(isArcInside(arc.from, arc.to, isInside));
    std::move(m_whole.begin(), m_whole.end(), std::back_inserter(result));
    return result;
}

} // namespace orbisgrid
