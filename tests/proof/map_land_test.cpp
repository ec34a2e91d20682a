#include "map/path_map.h"
#include "tests/proof/coast_reference.h"
#include "tests/proof/random_numbers.h"
#include "tests/support/picture_probe.h"
#include "tests/support/world_outlines.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <iostream>

namespace orbisgrid {

namespace {

using test::worldOutlines;

constexpr int centres = 300;
constexpr int placesOfEach = 2'000;
constexpr int pixels = 1000; // each way: one is a unit

/// The area of a picture in pixels: what is inside by the even-odd rule at the middle of each.
class Raster {
public:
    explicit Raster(const std::vector<Picture::Polyline>& rings)
        : m_crossings(pixels) {
        for (const Picture::Polyline& ring : rings) {
            for (std::size_t i = 0; i < ring.size(); ++i)
                add(ring[i], ring[(i + 1) % ring.size()]);
        }
        for (auto& row : m_crossings)
            std::sort(row.begin(), row.end());
    }

    bool isFilledAt(Picture::Point point) const {
        const auto& row = m_crossings[std::min<std::size_t>(
            pixels - 1, static_cast<std::size_t>(std::max(0.0, point.y)))];
        const auto left = std::lower_bound(row.begin(), row.end(), point.x) - row.begin();
        return left % 2 == 1;
    }

private:
    void add(Picture::Point a, Picture::Point b) {
        if (a.y > b.y)
            std::swap(a, b);
        for (int row = static_cast<int>(std::ceil(a.y - 0.5)); row + 0.5 < b.y; ++row) {
            const double part = (row + 0.5 - a.y) / (b.y - a.y);
            m_crossings.at(static_cast<std::size_t>(row)).push_back(a.x + (b.x - a.x) * part);
        }
    }

    std::vector<std::vector<double>> m_crossings; ///< of each row
};

/// Centres of every kind: poles, antipodes on land, the date line, and anywhere.
Position centreFor(test::RandomNumbers& random, int number) {
    switch (number % 10) {
    case 0:
        return {number % 20 == 0 ? 90.0 : -90.0, random.between(-180, 180)};
    case 1: // New Zealand
        return {random.between(-46, -36), random.between(168, 178)};
    case 2:
        return {random.between(-80, 80), 180};
    case 3: // Hawaii
        return {random.between(18, 23), random.between(-161, -154)};
    default:
        return {std::asin(random.between(-1, 1)) * 180 / std::numbers::pi,
                random.between(-180, 180)};
    }
}

/// The coasts of the file in a picture, made when a point is looked for.
class TrueCoasts {
public:
    explicit TrueCoasts(const MapFrame& frame)
        : m_frame(frame) {}

    /// Picture units from a point to the nearest coast.
    double distanceTo(Picture::Point point) {
        if (m_edges.empty())
            makeEdges();
        double least = 1e9;
        for (const auto& [from, to] : m_edges)
            least = std::fmin(least, test::distanceToEdge(point, from, to));
        return least;
    }

private:
    /// In parts, as an edge next to the antipode is no straight line.
    void makeEdges() {
        for (const Outlines::Line& coast : worldOutlines().coasts()) {
            const auto places = worldOutlines().pointsOf(coast);
            for (std::size_t i = 0; i < places.size(); ++i)
                addEdge(places[i], places[(i + 1) % places.size()]);
        }
    }

    void addEdge(const Direction& from, const Direction& to) {
        const Picture::Point start = m_frame.pointOf(positionOf(from));
        const Picture::Point end = m_frame.pointOf(positionOf(to));
        const double parts = std::fmin(20, std::ceil(test::distanceBetween(start, end)));
        Picture::Point before = start;
        for (double part = 1; part <= parts; ++part) {
            const Direction place = combined(from, 1 - part / parts, to, part / parts);
            const Picture::Point point = m_frame.pointOf(positionOf(place));
            m_edges.emplace_back(before, point);
            before = point;
        }
    }

    const MapFrame& m_frame;
    std::vector<std::pair<Picture::Point, Picture::Point>> m_edges;
};

TEST(MapLand, IsWhereAnotherTestOfTheSphereFindsIt) {
    const test::CoastReference reference(worldOutlines());
    test::RandomNumbers random(1999);
    int land = 0, differing = 0, wrong = 0, looked = 0;
    for (int number = 0; number < centres; ++number) {
        PathMapOptions options;
        options.view.centre = centreFor(random, number);
        if (number % 3 == 2)
            options.view.radiusKilometres = 100 * std::pow(200, random.between(0, 1));
        options.outlines = &worldOutlines();
        const MapFrame frame(options.view);
        const auto areas = test::shapesOf<Picture::Area>(pathMap(options), Role::land);
        ASSERT_EQ(areas.size(), 1U);
        const Raster raster(areas[0].rings);
        TrueCoasts coasts(frame);
        for (int i = 0; i < placesOfEach; ++i) {
            const double azimuth = random.between(-std::numbers::pi, std::numbers::pi);
            // Not in the rim's own pixels, of which the middle may be outside.
            const double radius = (frame.rim() - 1) * std::sqrt(random.between(0, 1));
            const Picture::Point point{500 + radius * std::sin(azimuth),
                                       500 - radius * std::cos(azimuth)};
            const bool isLand = reference.isLand(*frame.placeAt(point));
            land += isLand ? 1 : 0;
            ++looked;
            if (raster.isFilledAt(point) == isLand)
                continue;
            ++differing;
            wrong += coasts.distanceTo(point) > 2 ? 1 : 0;
            ASSERT_LT(wrong, 10) << "around " << options.view.centre.latitude << ' '
                                 << options.view.centre.longitude;
        }
    }
    std::cout << looked << " places, " << land << " of them land; " << differing
              << " shown otherwise, of which " << wrong
              << " farther than two pixels from a coast\n";
    EXPECT_EQ(looked, centres * placesOfEach);
    EXPECT_EQ(wrong, 0);
    EXPECT_LT(differing, looked / 200);
    EXPECT_GT(land, looked / 5);
    EXPECT_LT(land, looked / 2);
}

TEST(MapLand, TheFilesOwnTestAgrees) {
    const test::CoastReference reference(worldOutlines());
    test::RandomNumbers random(2000);
    int differing = 0;
    for (int i = 0; i < 20'000; ++i) {
        const Position place{random.between(-90, 90), random.between(-180, 180)};
        differing += worldOutlines().isLand(directionOf(place)) == reference.isLand(place) ? 0 : 1;
    }
    EXPECT_EQ(differing, 0);
}

} // namespace

} // namespace orbisgrid
