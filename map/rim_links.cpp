#include "map/rim_links.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace orbisgrid {

namespace {

constexpr double turn = 2 * std::numbers::pi;

/// Of the rim's points: at this distance the line between two is 0.02 units beside it.
constexpr double rimStep = turn / 360;

} // namespace

RimLinks::RimLinks(const std::vector<RimChain>& chains, double radius)
    : m_chains(chains)
    , m_radius(radius)
    , m_starts(chains.size())
    , m_ends(chains.size()) {
    for (std::size_t i = 0; i < chains.size(); ++i) {
        m_crossings.push_back({chains[i].startAzimuth, i, true});
        m_crossings.push_back({chains[i].endAzimuth, i, false});
    }
    std::stable_sort(
        m_crossings.begin(), m_crossings.end(),
        [](const Crossing& one, const Crossing& other) { return one.azimuth < other.azimuth; });
    for (std::size_t i = 0; i < m_crossings.size(); ++i) {
        const Crossing& crossing = m_crossings[i];
        (crossing.isStart ? m_starts : m_ends)[crossing.chain] = i;
    }
}

RimLinks::Arc RimLinks::arcBehind(std::size_t crossing) const {
    const double from = m_crossings[crossing].azimuth;
    const bool isLast = crossing + 1 == m_crossings.size();
    return {from, isLast ? m_crossings.front().azimuth + turn : m_crossings[crossing + 1].azimuth};
}

std::size_t RimLinks::widest() const {
    std::vector<double> widths;
    for (std::size_t i = 0; i < m_crossings.size(); ++i) {
        const Arc arc = arcBehind(i);
        widths.push_back(arc.to - arc.from);
    }
    return static_cast<std::size_t>(std::max_element(widths.begin(), widths.end()) -
                                    widths.begin());
}

RimLinks::Arc RimLinks::widestArc() const {
    return m_crossings.empty() ? Arc{0, turn} : arcBehind(widest());
}

std::vector<Picture::Polyline> RimLinks::rings(bool isWidestArcInside) const {
    std::vector<Picture::Polyline> result;
    if (m_crossings.empty()) {
        if (isWidestArcInside)
            appendRim(result.emplace_back(), -rimStep, turn);
        return result;
    }
    const bool areEvenArcsInside = isWidestArcInside == (widest() % 2 == 0);
    std::vector<bool> isUsed(m_chains.size(), false);
    for (std::size_t i = 0; i < m_chains.size(); ++i) {
        if (!isUsed[i])
            result.push_back(ringFrom(i, areEvenArcsInside, isUsed));
    }
    return result;
}

Picture::Polyline RimLinks::ringFrom(std::size_t chain, bool areEvenArcsInside,
                                     std::vector<bool>& isUsed) const {
    Picture::Polyline points;
    const std::size_t count = m_crossings.size();
    const std::size_t home = m_starts[chain];
    std::size_t at = home;
    do {
        // In at one end of a chain and out at the other: backwards where two rings meet at the rim.
        const Crossing& in = m_crossings[at];
        isUsed[in.chain] = true;
        appendChain(points, in.chain, in.isStart);
        const std::size_t out = in.isStart ? m_ends[in.chain] : m_starts[in.chain];
        if ((out % 2 == 0) == areEvenArcsInside) {
            const Arc arc = arcBehind(out);
            appendRim(points, arc.from, arc.to);
            at = (out + 1) % count;
        } else {
            at = (out == 0 ? count : out) - 1;
            const Arc arc = arcBehind(at);
            appendRim(points, arc.to, arc.from);
        }
    } while (at != home);
    return points;
}

void RimLinks::appendChain(Picture::Polyline& points, std::size_t chain, bool isForward) const {
    const Picture::Polyline& own = m_chains[chain].points;
    if (isForward)
        points.insert(points.end(), own.begin(), own.end());
    else
        points.insert(points.end(), own.rbegin(), own.rend());
}

void RimLinks::appendRim(Picture::Polyline& points, double from, double to) const {
    const double step = to < from ? -rimStep : rimStep;
    const auto steps = static_cast<int>(std::ceil((to - from) / step));
    for (int i = 1; i < steps; ++i) {
        const double azimuth = from + i * step;
        points.push_back({Picture::side / 2 + m_radius * std::sin(azimuth),
                          Picture::side / 2 - m_radius * std::cos(azimuth)});
    }
}

} // namespace orbisgrid
