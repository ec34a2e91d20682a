#include "tests/proof/coast_reference.h"
#include "tests/proof/land_comparison.h"
#include "tests/proof/random_numbers.h"
#include "tests/support/picture_probe.h"
#include "tests/support/world_outlines.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <iostream>
#include <memory>

namespace orbisgrid {

namespace {

using test::worldOutlines;

/// The area of a picture in pixels: what is inside by the even-odd rule at the middle of each.
class Raster {
public:
    explicit Raster(const std::vector<Picture::Polyline>& rings)
        : m_crossings(test::landPixels) {
        for (const Picture::Polyline& ring : rings) {
            for (std::size_t i = 0; i < ring.size(); ++i)
                add(ring[i], ring[(i + 1) % ring.size()]);
        }
        for (auto& row : m_crossings)
            std::sort(row.begin(), row.end());
    }

    bool isFilledAt(Picture::Point point) const {
        const auto& row = m_crossings[std::min<std::size_t>(
            test::landPixels - 1, static_cast<std::size_t>(std::max(0.0, point.y)))];
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

TEST(MapLand, IsWhereAnotherTestOfTheSphereFindsIt) {
    const test::LandComparison found = test::compareLand([](const PathMapOptions& options) {
        const auto areas = test::shapesOf<Picture::Area>(pathMap(options), Role::land);
        EXPECT_EQ(areas.size(), 1U);
        const auto raster = std::make_shared<Raster>(areas.at(0).rings);
        return [raster](Picture::Point point) { return raster->isFilledAt(point); };
    });
    std::cout << found.looked << " places, " << found.land << " of them land; " << found.differing
              << " shown otherwise, of which " << found.wrong
              << " farther than two pixels from a coast\n";
    EXPECT_EQ(found.looked, 600'000);
    EXPECT_EQ(found.wrong, 0);
    EXPECT_LT(found.differing, found.looked / 200);
    EXPECT_GT(found.land, found.looked / 5);
    EXPECT_LT(found.land, found.looked / 2);
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
