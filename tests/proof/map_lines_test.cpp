#include "map/land.h"
#include "tests/support/picture_probe.h"
#include "tests/support/world_outlines.h"

#include <gtest/gtest.h>

#include <cmath>
#include <iostream>
#include <map>

namespace orbisgrid {

namespace {

using test::worldOutlines;

/// The edges of drawn lines, found by where they are.
class DrawnEdges {
public:
    void add(Picture::Point a, Picture::Point b) {
        // Into each cell that a point of it can be in, or a point half a unit beside it.
        const double steps = std::ceil(test::distanceBetween(a, b)) + 1;
        for (double i = 0; i <= steps; ++i) {
            const Picture::Point point{a.x + (b.x - a.x) * i / steps,
                                       a.y + (b.y - a.y) * i / steps};
            for (int x = -1; x <= 1; ++x) {
                for (int y = -1; y <= 1; ++y) {
                    auto& cell = m_cells[keyOf(point, x, y)];
                    if (cell.empty() || cell.back() != std::pair(a, b))
                        cell.emplace_back(a, b);
                }
            }
        }
    }

    double distanceTo(Picture::Point point) const {
        double least = 1e9;
        const auto cell = m_cells.find(keyOf(point, 0, 0));
        if (cell == m_cells.end())
            return least;
        for (const auto& [a, b] : cell->second)
            least = std::fmin(least, test::distanceToEdge(point, a, b));
        return least;
    }

private:
    static int keyOf(Picture::Point point, int x, int y) {
        return (static_cast<int>(point.x) + x) * 2000 + static_cast<int>(point.y) + y;
    }

    std::map<int, std::vector<std::pair<Picture::Point, Picture::Point>>> m_cells;
};

/// How far true points of lines are from what is drawn.
struct Deviation {
    double most = 0;
    int looked = 0;
    int tiny = 0; ///< points of lines that are not drawn as they are smaller than that
};

bool isTiny(const std::vector<Picture::Point>& points) {
    for (const Picture::Point point : points) {
        if (test::distanceBetween(point, points.front()) > 0.6)
            return false;
    }
    return true;
}

/// The true line: each edge in steps so short that the picture's are below a tenth of a unit in
/// most places.
std::vector<Picture::Point> truePoints(const MapFrame& frame, std::span<const Direction> line,
                                       bool isClosed) {
    std::vector<Picture::Point> points;
    for (std::size_t i = 0; i + (isClosed ? 0 : 1) < line.size(); ++i) {
        const Direction &a = line[i], &b = line[(i + 1) % line.size()];
        for (const double part : {0.0, 0.2, 0.4, 0.6, 0.8}) {
            const Position place = positionOf(combined(a, 1 - part, b, part));
            if (frame.shows(place))
                points.push_back(frame.pointOf(place));
        }
    }
    return points;
}

void look(const MapFrame& frame, const std::vector<Outlines::Line>& lines, bool areClosed,
          const DrawnEdges& drawn, Deviation& deviation) {
    for (const Outlines::Line& line : lines) {
        const auto points = truePoints(frame, worldOutlines().pointsOf(line), areClosed);
        if (!points.empty() && isTiny(points)) {
            deviation.tiny += static_cast<int>(points.size());
            continue;
        }
        for (const Picture::Point point : points) {
            deviation.most = std::fmax(deviation.most, drawn.distanceTo(point));
            ++deviation.looked;
        }
    }
}

TEST(MapLines, AreTrueWithinThreeTenthsOfAUnit) {
    const MapView views[] = {{{50.9, 4}},       {{-41.3, 174.8}},  {{90, 0}},
                             {{-90, 0}},        {{21.3, -157.8}},  {{0, 180}},
                             {{50.9, 4}, 9000}, {{50.9, 4}, 3000}, {{-41.3, 174.8}, 500},
                             {{50.9, 4}, 100}};
    Deviation coasts, borders;
    for (const MapView& view : views) {
        const MapFrame frame(view);
        DrawnEdges land, lines;
        for (const Picture::Polyline& ring : landOf(frame, worldOutlines()).rings) {
            for (std::size_t i = 0; i < ring.size(); ++i)
                land.add(ring[i], ring[(i + 1) % ring.size()]);
        }
        for (const Picture::Polyline& line : bordersOf(frame, worldOutlines()).lines) {
            for (std::size_t i = 1; i < line.size(); ++i)
                lines.add(line[i - 1], line[i]);
        }
        look(frame, worldOutlines().coasts(), true, land, coasts);
        look(frame, worldOutlines().borders(), false, lines, borders);
    }
    std::cout << coasts.looked << " points of coasts, at most " << coasts.most
              << " units from what is drawn; " << borders.looked << " of borders, " << borders.most
              << "; " << coasts.tiny + borders.tiny << " of lines below 0.6\n";
    EXPECT_LE(coasts.most, 0.3);
    EXPECT_LE(borders.most, 0.3);
    EXPECT_GT(coasts.looked, 1'000'000);
    EXPECT_GT(borders.looked, 100'000);
}

} // namespace

} // namespace orbisgrid
