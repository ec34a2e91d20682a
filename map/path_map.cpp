#include "map/path_map.h"

#include "map/labels.h"
#include "map/land.h"
#include "map/locator_lines.h"
#include "map/rim_clip.h"
#include "map/rose.h"

#include <array>
#include <cmath>

namespace orbisgrid {

namespace {

/// Of the text's size.
constexpr double homeRadius = 0.3;
constexpr double targetRadius = 0.25;

Picture::Area nightOf(const MapFrame& frame, Moment moment) {
    constexpr int corners = 8; // the clip puts points between
    const Direction sun = directionOf(subsolarPoint(moment));
    const Direction east = perpendicular(sun);
    const Direction north = cross(sun, east);
    std::vector<Direction> edge;
    for (int i = 0; i < corners; ++i) {
        const double angle = 2 * std::numbers::pi * i / corners;
        edge.push_back(combined(east, std::cos(angle), north, std::sin(angle)));
    }
    RimClip clip(frame);
    clip.addRing(edge);
    return {Role::night,
            std::move(clip).area([&](const Direction& place) { return dot(place, sun) < 0; })};
}

/// A target in the plane of the map.
struct Bearing {
    double distance{};     ///< from the centre: picture units
    double right{}, up{};  ///< the direction, of length 1
    bool isHome = false;   ///< it has no direction
    bool isInside = false; ///< of the rim, or on it

    Bearing(const MapFrame& frame, Position place) {
        const PlanePoint point = frame.projection().project(place);
        const double kilometres = std::hypot(point.x, point.y);
        distance = kilometres / frame.kilometresPerUnit();
        isHome = kilometres == 0;
        if (!isHome) {
            right = point.x / kilometres;
            up = point.y / kilometres;
        }
        isInside = kilometres <= frame.kilometres();
    }

    Picture::Point pointAt(double units) const {
        return {MapFrame::middle.x + right * units, MapFrame::middle.y - up * units};
    }
};

/// Makes one picture, from its background to its least important text.
class PathMapPainter {
public:
    explicit PathMapPainter(const PathMapOptions& options)
        : m_options(options)
        , m_frame(options.view) {
        for (const MapTarget& target : options.targets) {
            if (isPlace(target.place))
                m_targets.push_back({Bearing(m_frame, target.place), target.text});
        }
    }

    Picture picture() {
        m_picture.centre = MapFrame::middle;
        m_picture.radius = m_frame.rim();
        addWorld();
        addPaths();
        addDots();
        addLabels();
        return std::move(m_picture);
    }

private:
    struct Target {
        Bearing bearing;
        Text text;
    };

    /// Made where it stays: of one that is moved there GCC 14 says that it may be uninitialized.
    template <typename Kind>
    void add(Kind shape) {
        m_picture.shapes.emplace_back(std::move(shape));
    }

    void addWorld() {
        add(Picture::Circle{Role::sea, MapFrame::middle, m_frame.rim()});
        if (m_options.outlines) {
            add(landOf(m_frame, *m_options.outlines));
            add(bordersOf(m_frame, *m_options.outlines));
        }
        if (m_options.moment)
            add(nightOf(m_frame, *m_options.moment));
        add(gridOf(m_frame));
        for (const double kilometres : ringKilometres(m_frame.kilometres()))
            add(Picture::Circle{Role::ring, MapFrame::middle,
                                kilometres / m_frame.kilometresPerUnit()});
        add(ticksOf(m_frame));
        add(Picture::Circle{Role::rim, MapFrame::middle, m_frame.rim()});
    }

    void addPaths() {
        if (!m_options.drawsPaths || !m_options.home)
            return;
        Picture::Lines longPath{Role::longPath, {}}, shortPath{Role::shortPath, {}};
        const double rim = m_frame.rim();
        for (const auto& [bearing, text] : m_targets) {
            if (bearing.isHome)
                continue;
            longPath.lines.push_back({MapFrame::middle, bearing.pointAt(-rim)});
            if (bearing.isInside)
                longPath.lines.push_back({bearing.pointAt(rim), bearing.pointAt(bearing.distance)});
            shortPath.lines.push_back(
                {MapFrame::middle, bearing.pointAt(std::min(rim, bearing.distance))});
        }
        add(std::move(longPath));
        add(std::move(shortPath));
    }

    void addDots() {
        const double em = m_frame.textSize();
        for (const auto& [bearing, text] : m_targets) {
            if (bearing.isInside)
                addDot({Role::target, bearing.pointAt(bearing.distance), targetRadius * em});
        }
        if (m_options.home)
            addDot({Role::home, MapFrame::middle, homeRadius * em});
        if (m_options.cross && isPlace(*m_options.cross) && m_frame.shows(*m_options.cross)) {
            const auto [x, y] = m_frame.pointOf(*m_options.cross);
            const double arm = em / 2;
            add(Picture::Lines{Role::cross,
                               {{{x - arm, y}, {x + arm, y}}, {{x, y - arm}, {x, y + arm}}}});
            m_labels.keepFree({Role::cross, {x, y}, arm});
        }
    }

    void addDot(const Picture::Dot& dot) {
        add(dot);
        m_labels.keepFree(dot);
        m_dots.push_back(dot);
    }

    void addLabel(const std::vector<Picture::Label>& candidates, double away = 0) {
        if (auto label = m_labels.place(candidates, away))
            add(std::move(*label));
    }

    void addLabels() {
        addDotLabels();
        const double em = m_frame.textSize();
        if (m_options.moment)
            addLabel({{Role::note,
                       {0.5 * em, Picture::side - 0.5 * em},
                       Picture::Anchor::start,
                       em,
                       momentNote(*m_options.moment)}});
        for (const Picture::Label& label : cardinalsOf(m_frame))
            addLabel({label});
        for (const Picture::Label& label : bearingsOf(m_frame))
            addLabel({label});
        for (const double kilometres : ringKilometres(m_frame.kilometres()))
            addLabel(ringLabels(m_frame, kilometres));
        constexpr double awayOfGrid = 1; // em: every cell with its name would hide the world
        for (const auto& candidates : gridLabels(m_frame))
            addLabel(candidates, awayOfGrid * em);
    }

    void addDotLabels() {
        const double em = m_frame.textSize();
        if (m_options.home && !m_options.home->empty())
            addLabel(labelsBeside(m_dots.back(), Role::homeLabel, em, *m_options.home));
        std::size_t dot = 0;
        for (const auto& [bearing, text] : m_targets) {
            if (!bearing.isInside)
                continue;
            if (!text.empty())
                addLabel(labelsBeside(m_dots[dot], Role::targetLabel, em, text));
            ++dot;
        }
    }

    const PathMapOptions& m_options;
    MapFrame m_frame;
    std::vector<Target> m_targets;
    std::vector<Picture::Dot> m_dots; ///< of the targets within the rim; then Home's
    LabelPlacer m_labels;
    Picture m_picture;
};

} // namespace

Picture pathMap(const PathMapOptions& options) {
    return PathMapPainter(options).picture();
}

} // namespace orbisgrid
