#include "map/land.h"

#include "map/rim_clip.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numeric>

namespace orbisgrid {

namespace {

constexpr double pi = std::numbers::pi;
constexpr double leftOut = 0.15;                                    ///< picture units
constexpr double nowhere = std::numeric_limits<double>::infinity(); ///< more than any cosine

/// How far from the centre points of a detail are left out, as the cosine of the distance: towards
/// the antipode a kilometre across takes more and more room.
double whereLeftOut(const MapFrame& frame, double kilometres) {
    const double mostStretch = leftOut * frame.kilometresPerUnit() / kilometres;
    if (mostStretch <= 1)
        return nowhere;
    double near = 0, far = pi;
    while (std::nextafter(near, far) < far) { // as long as a number lies between the two
        const double between = std::midpoint(near, far);
        (between / std::sin(between) <= mostStretch ? near : far) = between;
    }
    return std::cos(near);
}

/// Chooses of each line what a picture shows of it.
class DetailChoice {
public:
    DetailChoice(const MapFrame& frame, const Outlines& outlines)
        : m_frame(frame)
        , m_outlines(outlines) {
        for (std::size_t i = 0; i < detailKilometres.size(); ++i)
            m_leftOut.at(i) = whereLeftOut(frame, detailKilometres.at(i));
        m_leftOut.back() = nowhere;
    }

    /// Whether something of it can be within the rim.
    bool isSeen(const Outlines::Line& line) const {
        const double distance = angleBetween(line.middle, m_frame.projection().zenith());
        return distance <= m_frame.kilometres() / earthRadius + line.reach;
    }

    /// The points that stay: of the file's lines two at least, so that an islet is still a dot of
    /// the painter's pen; of another file's maybe none. They are valid until the next call.
    std::span<const Direction> pointsOf(const Outlines::Line& line) {
        const Direction& zenith = m_frame.projection().zenith();
        const auto points = m_outlines.pointsOf(line);
        const auto details = m_outlines.detailsOf(line);
        m_points.clear();
        for (std::size_t i = 0; i < points.size(); ++i) {
            if (dot(points[i], zenith) < m_leftOut[details[i]])
                m_points.push_back(points[i]);
        }
        return m_points;
    }

private:
    const MapFrame& m_frame;
    const Outlines& m_outlines;
    std::array<double, detailKilometres.size() + 1> m_leftOut{};
    std::vector<Direction> m_points;
};

/// Hands over what the picture shows of each line of which something may be seen.
template <typename Add>
void eachSeen(const MapFrame& frame, const Outlines& outlines,
              const std::vector<Outlines::Line>& lines, const Add& add) {
    DetailChoice choice(frame, outlines);
    for (const Outlines::Line& line : lines) {
        if (!choice.isSeen(line))
            continue;
        const auto points = choice.pointsOf(line);
        if (!points.empty())
            add(points);
    }
}

} // namespace

Picture::Area landOf(const MapFrame& frame, const Outlines& outlines) {
    RimClip clip(frame);
    eachSeen(frame, outlines, outlines.coasts(), [&clip](auto points) { clip.addRing(points); });
    return {Role::land,
            std::move(clip).area([&](const Direction& place) { return outlines.isLand(place); })};
}

Picture::Lines bordersOf(const MapFrame& frame, const Outlines& outlines) {
    RimClip clip(frame);
    eachSeen(frame, outlines, outlines.borders(), [&clip](auto points) { clip.addLine(points); });
    return {Role::border, std::move(clip).lines()};
}

} // namespace orbisgrid
