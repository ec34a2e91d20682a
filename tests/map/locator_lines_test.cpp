#include "map/locator_lines.h"

#include "core/locator_grid.h"
#include "core/maidenhead.h"
#include "tests/support/picture_probe.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>

namespace orbisgrid {

namespace {

constexpr Position brussels{50.85, 4.35};

std::set<std::string> namesOf(const MapFrame& frame) {
    std::set<std::string> names;
    for (const auto& candidates : gridLabels(frame))
        names.insert(toUtf8(candidates.front().text));
    return names;
}

/// Whether a line of the grid passes through a place.
bool hasLineAt(const Picture::Lines& grid, const MapFrame& frame, Position place) {
    const Picture::Point point = frame.pointOf(place);
    for (const Picture::Polyline& line : grid.lines) {
        for (std::size_t i = 1; i < line.size(); ++i) {
            if (test::distanceToEdge(point, line[i - 1], line[i]) < 0.3)
                return true;
        }
    }
    return false;
}

/// How far drawn lines are from the nearest meridian or parallel of the cells, in picture units.
double farthestFromGrid(const MapFrame& frame, double width, double height) {
    double most = 0;
    for (const Picture::Polyline& line : gridOf(frame).lines) {
        for (std::size_t i = 1; i < line.size(); ++i) {
            const Picture::Point point{(line[i].x + line[i - 1].x) / 2,
                                       (line[i].y + line[i - 1].y) / 2};
            const auto place = frame.placeAt(point);
            if (!place)
                continue;
            const double longitude = std::round(place->longitude / width) * width;
            const double latitude = std::round(place->latitude / height) * height;
            const Direction pole = directionOf({0, longitude + 90});
            const double toMeridian = test::distanceToCurve(
                frame, point, [&](const Direction& each) { return dot(each, pole); });
            const double toParallel =
                test::distanceToCurve(frame, point, [&](const Direction& each) {
                    return positionOf(each).latitude - latitude;
                });
            most = std::fmax(most, std::fmin(toMeridian, toParallel));
        }
    }
    return most;
}

TEST(Grid, ShowsFieldsFromFifteenHundredKilometresOn) {
    EXPECT_EQ(gridLevelOf(MapFrame(MapView{brussels, 1500})), GridLevel::fields);
    EXPECT_EQ(gridLevelOf(MapFrame(MapView{brussels, 1499})), GridLevel::squares);
}

TEST(Grid, TheWholeWorldHasAllFields) {
    EXPECT_EQ(namesOf(MapFrame(MapView{brussels})).size(), 324U);
    EXPECT_EQ(gridLabels(MapFrame(MapView{brussels})).size(), 324U) << "each of them once";
    EXPECT_EQ(namesOf(MapFrame(MapView{{90, 0}})).size(), 324U);
}

TEST(Grid, ASmallMapHasItsSquares) {
    const auto names = namesOf(MapFrame(MapView{brussels, 200}));
    EXPECT_TRUE(names.contains("JO20"));
    EXPECT_TRUE(names.contains("JO21"));
    EXPECT_TRUE(names.contains("JN29"));
    EXPECT_FALSE(names.contains("JO40"));
    EXPECT_LT(names.size(), 12U);
}

TEST(Grid, LabelsLieInTheirCell) {
    for (const double kilometres : {halfCircumference, 3000.0, 1400.0, 200.0}) {
        for (const Position centre : {brussels, Position{-88, 12}, {0, 179}}) {
            const MapFrame frame(MapView{centre, kilometres});
            for (const auto& candidates : gridLabels(frame)) {
                ASSERT_EQ(candidates.size(), 5U);
                for (const Picture::Label& label : candidates) {
                    EXPECT_EQ(label.role, Role::gridLabel);
                    const LabelBox box = boxOf(label);
                    const auto place =
                        frame.placeAt({(box.left + box.right) / 2, (box.top + box.bottom) / 2});
                    if (!place)
                        continue;
                    ASSERT_TRUE(locatorOf(*place).starts_with(label.text))
                        << toUtf8(label.text) << ' ' << toUtf8(locatorOf(*place));
                }
            }
        }
    }
}

TEST(Grid, LabelsStartAtTheCentre) {
    const MapFrame frame(MapView{{50.5, 5}, 1000});
    double before = 0;
    for (const auto& candidates : gridLabels(frame)) {
        const LabelBox box = boxOf(candidates.front());
        const double distance = test::distanceBetween(
            {(box.left + box.right) / 2, (box.top + box.bottom) / 2}, MapFrame::middle);
        EXPECT_GE(distance, before - 1e-9);
        EXPECT_LE(distance, frame.rim());
        before = distance;
    }
    EXPECT_EQ(toUtf8(gridLabels(frame).front().front().text), "JO20");
}

TEST(Grid, LinesAreWhereTheCellsMeet) {
    const MapFrame frame(MapView{brussels, 3500});
    const Picture::Lines grid = gridOf(frame);
    EXPECT_EQ(grid.role, Role::grid);
    EXPECT_TRUE(hasLineAt(grid, frame, {45, 0}));
    EXPECT_TRUE(hasLineAt(grid, frame, {45, 20}));
    EXPECT_TRUE(hasLineAt(grid, frame, {50, 7}));
    EXPECT_TRUE(hasLineAt(grid, frame, {80, 7}));
    EXPECT_FALSE(hasLineAt(grid, frame, {45, 10}));
    EXPECT_FALSE(hasLineAt(grid, frame, {45, 7}));
    const MapFrame close(MapView{brussels, 1000});
    const Picture::Lines squares = gridOf(close);
    EXPECT_TRUE(hasLineAt(squares, close, {50.5, 2}));
    EXPECT_TRUE(hasLineAt(squares, close, {51, 3}));
    EXPECT_FALSE(hasLineAt(squares, close, {50.5, 3}));
}

TEST(Grid, TheWholeWorldHasEachLine) {
    for (const Position centre : {brussels, Position{90, 0}, {-41, 174}, {0, 180}}) {
        const MapFrame frame(MapView{centre});
        const Picture::Lines grid = gridOf(frame);
        for (double longitude = -180; longitude < 180; longitude += 20)
            EXPECT_TRUE(hasLineAt(grid, frame, {5, longitude})) << longitude;
        for (double latitude = -80; latitude < 90; latitude += 10)
            EXPECT_TRUE(hasLineAt(grid, frame, {latitude, 7})) << latitude;
    }
}

TEST(Grid, ACapAcrossThePoleHasEachMeridian) {
    for (const double latitude : {85.0, -85.0}) {
        const MapFrame frame(MapView{{latitude, 13}, 2000});
        const Picture::Lines grid = gridOf(frame);
        for (double longitude = -180; longitude < 180; longitude += 20)
            EXPECT_TRUE(hasLineAt(grid, frame, {latitude, longitude})) << longitude;
    }
}

TEST(Grid, ReachesTheRimOnTheDateLine) {
    const MapFrame frame(MapView{{10, 179}, 1000});
    const Picture::Lines grid = gridOf(frame);
    EXPECT_TRUE(hasLineAt(grid, frame, {10.5, -174}));
    EXPECT_TRUE(hasLineAt(grid, frame, {10.5, 172}));
    EXPECT_TRUE(hasLineAt(grid, frame, {10.5, 180}));
    EXPECT_TRUE(hasLineAt(grid, frame, {4, -178.5}));
}

TEST(Grid, MeridiansOfSquaresEndBeforeThePole) {
    const MapFrame frame(MapView{{88, 0}, 1000});
    const Picture::Lines grid = gridOf(frame);
    EXPECT_TRUE(hasLineAt(grid, frame, {89.5, 20})) << "of fields they run on";
    EXPECT_FALSE(hasLineAt(grid, frame, {89.5, 24}));
    EXPECT_TRUE(hasLineAt(grid, frame, {85.5, 24}));
}

TEST(Grid, LinesAreTrueWithinThreeTenthsOfAUnit) {
    for (const Position centre :
         {brussels, Position{-41.5, 174}, {90, 0}, {-85, 100}, {21, -157}}) {
        for (const double kilometres : {halfCircumference, 15000.0, 3000.0})
            EXPECT_LT(farthestFromGrid(MapFrame(MapView{centre, kilometres}), 20, 10), 0.3)
                << kilometres;
        for (const double kilometres : {1400.0, 200.0})
            EXPECT_LT(farthestFromGrid(MapFrame(MapView{centre, kilometres}), 2, 1), 0.3)
                << kilometres;
    }
}

TEST(Grid, AParallelThroughTheAntipodeComesToAnEnd) {
    const MapFrame frame(MapView{{-50, -176}});
    std::size_t points = 0;
    for (const Picture::Polyline& line : gridOf(frame).lines)
        points += line.size();
    EXPECT_LT(points, 20'000U);
    EXPECT_LT(farthestFromGrid(frame, 20, 10), 0.3);
}

TEST(Grid, StaysWithinTheRim) {
    for (const double kilometres : {halfCircumference, 3000.0, 1000.0, 100.0}) {
        const MapFrame frame(MapView{brussels, kilometres});
        for (const Picture::Polyline& line : gridOf(frame).lines) {
            for (const Picture::Point point : line)
                ASSERT_LE(test::distanceBetween(point, MapFrame::middle), frame.rim() + 1e-6);
        }
    }
}

} // namespace

} // namespace orbisgrid
