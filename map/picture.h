#pragma once

#include "core/text.h"

#include <string_view>
#include <variant>
#include <vector>

namespace orbisgrid {

/// What a shape of a picture is. A painter chooses colours and pens by it.
enum class Role {
    sea,          ///< the disc of the map, behind everything
    land,         ///< filled
    border,       ///< between two countries
    night,        ///< where the sun is below the horizon: a shade over sea and land
    grid,         ///< lines of the locator grid
    gridLabel,    ///< its fields or squares
    ring,         ///< a circle of distance
    ringLabel,    ///< its kilometres
    tick,         ///< a mark of the rim
    bearingLabel, ///< its degrees
    cardinal,     ///< N, E, S, W
    rim,          ///< the circle that ends the map
    shortPath,    ///< from Home to a Target
    longPath,     ///< the other way round; dashed
    cross,        ///< a place that was picked
    target,       ///< dot
    home,         ///< dot
    targetLabel,  ///< what stands beside a Target
    homeLabel,    ///< what stands beside Home
    note          ///< the moment of day and night
};

/// The name of a role in a file: "short-path".
[[nodiscard]] std::string_view roleName(Role role);

/// How many roles there are.
inline constexpr int roleCount = 20;

/// A drawing as a value: shapes with roles, in the order in which they are painted. It knows
/// neither pixels nor colours. Its units: 0 to 1000 from left to right and from the top down.
struct Picture {
    static constexpr double side = 1000;

    struct Point {
        double x{}, y{};

        bool operator==(const Point&) const = default;
    };

    using Polyline = std::vector<Point>;

    /// What lies inside of an odd number of rings is filled. The last point of a ring is joined to
    /// its first.
    struct Area {
        Role role{};
        std::vector<Polyline> rings;
    };

    struct Lines {
        Role role{};
        std::vector<Polyline> lines;
    };

    /// Filled if it is the sea, else its line alone.
    struct Circle {
        Role role{};
        Point centre;
        double radius{};
    };

    /// A filled spot; its radius grows with the texts.
    struct Dot {
        Role role{};
        Point place;
        double radius{};
    };

    /// Which part of a text is at its place.
    enum class Anchor { start, middle, end };

    struct Label {
        Role role{};
        Point place; ///< on the base line
        Anchor anchor{};
        double size{}; ///< of the font: one em
        Text text;
    };

    using Shape = std::variant<Area, Lines, Circle, Dot, Label>;

    Point centre;    ///< of the map
    double radius{}; ///< of its rim
    std::vector<Shape> shapes;
};

} // namespace orbisgrid
