#include "map/rim_clip.h"

#include "tests/support/picture_probe.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <set>

namespace orbisgrid {

namespace {

using Places = std::vector<Position>;
using test::isFilled;

constexpr double degree = std::numbers::pi / 180 * earthRadius; // km

std::vector<Direction> directionsOf(const Places& places) {
    std::vector<Direction> directions;
    for (const Position place : places)
        directions.push_back(directionOf(place));
    return directions;
}

MapFrame frameAt(Position centre, double kilometres = halfCircumference) {
    return MapFrame(MapView{centre, kilometres});
}

std::vector<Picture::Polyline> clippedLine(const MapFrame& frame, const Places& places) {
    RimClip clip(frame);
    clip.addLine(directionsOf(places));
    return std::move(clip).lines();
}

/// The visible part of the area within rings; `isInside` knows it too.
std::vector<Picture::Polyline> clippedArea(const MapFrame& frame, const std::vector<Places>& rings,
                                           const RimClip::IsInside& isInside) {
    RimClip clip(frame);
    for (const Places& ring : rings)
        clip.addRing(directionsOf(ring));
    return std::move(clip).area(isInside);
}

/// The corners of a square of 2 x `half` degrees of latitude and longitude.
Places square(Position middle, double half) {
    const auto [latitude, longitude] = middle;
    return {{latitude - half, longitude - half},
            {latitude - half, longitude + half},
            {latitude + half, longitude + half},
            {latitude + half, longitude - half}};
}

/// What lies within such a square; close to the equator, where its sides are nearly parallels.
RimClip::IsInside insideOf(Position middle, double half) {
    return [=](const Direction& direction) {
        const Position place = positionOf(direction);
        return std::fabs(place.latitude - middle.latitude) < half &&
               std::fabs(std::remainder(place.longitude - middle.longitude, 360)) < half;
    };
}

/// How far the lines lie from the great circle through two places, in picture units.
double farthestFrom(Position from, Position to, const MapFrame& frame,
                    const std::vector<Picture::Polyline>& lines) {
    const Direction pole = normalised(cross(directionOf(from), directionOf(to)));
    double most = 0;
    for (const Picture::Polyline& line : lines) {
        for (std::size_t i = 1; i < line.size(); ++i) {
            for (const double part : {0.25, 0.5, 0.75}) {
                const Picture::Point point{line[i - 1].x + (line[i].x - line[i - 1].x) * part,
                                           line[i - 1].y + (line[i].y - line[i - 1].y) * part};
                most = std::fmax(most,
                                 test::distanceToCurve(frame, point, [&](const Direction& place) {
                                     return dot(place, pole);
                                 }));
            }
        }
    }
    return most;
}

TEST(RimClip, ALineWithinTheRimKeepsItsEnds) {
    const MapFrame frame = frameAt({0, 0}, 20 * degree);
    const auto lines = clippedLine(frame, {{0, -5}, {0, 5}});
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_LT(test::distanceBetween(lines[0].front(), frame.pointOf(Position{0, -5})), 1e-9);
    EXPECT_LT(test::distanceBetween(lines[0].back(), frame.pointOf(Position{0, 5})), 1e-9);
}

TEST(RimClip, ALineIsCutAtTheRim) {
    const MapFrame frame = frameAt({0, 0}, 20 * degree);
    const auto lines = clippedLine(frame, {{0, 10}, {0, 30}});
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_NEAR(lines[0].back().x, MapFrame::middle.x + frame.rim(), 1e-6);
    EXPECT_NEAR(lines[0].back().y, MapFrame::middle.y, 1e-6);
    const auto back = clippedLine(frame, {{0, 30}, {0, 10}});
    ASSERT_EQ(back.size(), 1U);
    EXPECT_NEAR(back[0].front().x, MapFrame::middle.x + frame.rim(), 1e-6);
}

TEST(RimClip, AnEdgeWithBothEndsOutsideMayPassThrough) {
    const MapFrame frame = frameAt({0, 0}, 20 * degree);
    const auto lines = clippedLine(frame, {{0, -30}, {0, 30}});
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_NEAR(lines[0].front().x, MapFrame::middle.x - frame.rim(), 1e-6);
    EXPECT_NEAR(lines[0].back().x, MapFrame::middle.x + frame.rim(), 1e-6);
    EXPECT_TRUE(clippedLine(frame, {{25, -30}, {25, 30}}).empty()) << "passes by";
    EXPECT_TRUE(clippedLine(frame, {{0, 25}, {0, 60}}).empty()) << "leads away";
    EXPECT_TRUE(clippedLine(frame, {{0, 60}, {0, 25}}).empty()) << "ends before";
}

TEST(RimClip, AnEdgeWithBothEndsInsideMayLeaveAndComeBack) {
    const MapFrame frame = frameAt({0, 0}, 170 * degree);
    const auto lines = clippedLine(frame, {{0, 160}, {0, -160}});
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_NEAR(lines[0].back().x, MapFrame::middle.x + frame.rim(), 1e-6);
    EXPECT_NEAR(lines[1].front().x, MapFrame::middle.x - frame.rim(), 1e-6);
    EXPECT_EQ(clippedLine(frame, {{15, 160}, {15, -160}}).size(), 1U) << "passes by the antipode";
}

TEST(RimClip, ALineThatLeavesTwiceIsTwoLines) {
    const MapFrame frame = frameAt({0, 0}, 20 * degree);
    const auto lines = clippedLine(frame, {{0, 0}, {30, 0}, {30, 1}, {0, 1}, {0, 2}, {30, 3}});
    ASSERT_EQ(lines.size(), 2U);
}

TEST(RimClip, APlaceTwiceIsNoEdge) {
    const MapFrame frame = frameAt({0, 0}, 20 * degree);
    EXPECT_EQ(clippedLine(frame, {{0, 10}, {0, 10}, {0, 11}}).size(), 1U);
    EXPECT_TRUE(clippedLine(frame, {{0, 40}, {0, 40}}).empty());
}

TEST(RimClip, APlaceTwiceOnTheRimIsNoEdge) {
    const MapFrame frame = frameAt({0, 0}, 20 * degree);
    for (const auto& line : clippedLine(frame, {{0, 20}, {0, 20}, {0, 21}})) {
        for (const Picture::Point point : line)
            EXPECT_TRUE(std::isfinite(point.x) && std::isfinite(point.y));
    }
}

TEST(RimClip, AnEdgeAlongTheRimIsInsideOrOutside) {
    // From the pole the rim is a parallel; great circles between its places lie farther north.
    const MapFrame frame = frameAt({90, 0}, 20 * degree);
    const auto inside = clippedLine(frame, {{70.001, 0}, {70.001, 10}});
    ASSERT_EQ(inside.size(), 1U);
    EXPECT_LT(test::distanceBetween(inside[0].back(), frame.pointOf(Position{70.001, 10})), 1e-6);
    const auto through = clippedLine(frame, {{69.99, 0}, {69.99, 10}});
    ASSERT_EQ(through.size(), 1U) << "it cuts a corner";
    EXPECT_TRUE(clippedLine(frame, {{69.99, 0}, {69.99, 0.1}}).empty());
    EXPECT_TRUE(clippedLine(frame, {{69.99, 0}, {60, 0}}).empty());
    EXPECT_TRUE(clippedLine(frame, {{60, 0}, {69.99, 0}}).empty());
    // Of all but a cap around the south pole.
    const MapFrame large = frameAt({90, 0}, 160 * degree);
    EXPECT_EQ(clippedLine(large, {{-69.99, 0}, {-69.99, 0.1}}).size(), 1U);
    EXPECT_EQ(clippedLine(large, {{-69.99, 0}, {-69.99, 10}}).size(), 2U);
    EXPECT_EQ(clippedLine(large, {{-69.99, 0}, {-60, 0}}).size(), 1U);
    EXPECT_EQ(clippedLine(large, {{-60, 0}, {-69.99, 0}}).size(), 1U);
}

TEST(RimClip, OppositePlacesAreJoinedSomehow) {
    const MapFrame frame = frameAt({20, 30});
    const auto lines = clippedLine(frame, {{0, 0}, {0, 180}});
    ASSERT_FALSE(lines.empty());
    for (const Picture::Polyline& line : lines) {
        for (const Picture::Point point : line)
            EXPECT_TRUE(std::isfinite(point.x) && std::isfinite(point.y));
    }
}

TEST(RimClip, LongEdgesAreGreatCircles) {
    const Position from{10, -60}, to{50, 70};
    for (const double kilometres : {200.0, 3000.0, 12000.0, halfCircumference}) {
        const MapFrame frame = frameAt({45, 10}, kilometres);
        const auto lines = clippedLine(frame, {from, to});
        EXPECT_LT(farthestFrom(from, to, frame, lines), 0.3) << kilometres;
    }
}

TEST(RimClip, EdgesThatPassCloseByTheAntipodeAreTrue) {
    for (const double beside : {10.0, 1.0, 0.1, 0.01, 0.001}) {
        const Position from{beside, 150}, to{beside, -150};
        const MapFrame frame = frameAt({0, 0});
        const auto lines = clippedLine(frame, {from, to});
        ASSERT_FALSE(lines.empty());
        EXPECT_LT(farthestFrom(from, to, frame, lines), 0.3) << beside;
        std::size_t points = 0;
        for (const Picture::Polyline& line : lines)
            points += line.size();
        EXPECT_LT(points, 3000U) << beside;
    }
}

TEST(RimClip, AnEdgeThroughTheAntipodeIsCutThere) {
    const MapFrame frame = frameAt({0, 0});
    const auto lines = clippedLine(frame, {{0, 150}, {0, -150}});
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_NEAR(lines[0].back().x, MapFrame::middle.x + frame.rim(), 0.001);
    EXPECT_NEAR(lines[1].front().x, MapFrame::middle.x - frame.rim(), 0.001);
}

TEST(RimClip, ARingWithinTheRimIsOneRing) {
    const MapFrame frame = frameAt({0, 0}, 20 * degree);
    const auto rings = clippedArea(frame, {square({0, 0}, 5)}, insideOf({0, 0}, 5));
    ASSERT_EQ(rings.size(), 1U);
    EXPECT_NE(rings[0].front(), rings[0].back()) << "the painter closes it";
    EXPECT_TRUE(isFilled(rings, MapFrame::middle));
    EXPECT_FALSE(isFilled(rings, frame.pointOf(Position{0, 6})));
}

TEST(RimClip, ARingBeyondTheRimIsNothingOrAll) {
    const MapFrame frame = frameAt({0, 0}, 20 * degree);
    EXPECT_TRUE(clippedArea(frame, {square({0, 80}, 5)}, insideOf({0, 80}, 5)).empty());
    const auto all = clippedArea(frame, {square({0, 0}, 40)}, insideOf({0, 0}, 40));
    ASSERT_EQ(all.size(), 1U);
    for (const Picture::Point point : all[0])
        EXPECT_NEAR(test::distanceBetween(point, MapFrame::middle), frame.rim(), 1e-6);
    EXPECT_EQ(all[0].size(), 360U);
}

TEST(RimClip, ARingIsCutAtTheRim) {
    const MapFrame frame = frameAt({0, 0}, 20 * degree);
    const auto rings = clippedArea(frame, {square({0, 20}, 5)}, insideOf({0, 20}, 5));
    ASSERT_EQ(rings.size(), 1U);
    EXPECT_TRUE(isFilled(rings, frame.pointOf(Position{0, 19})));
    EXPECT_TRUE(isFilled(rings, frame.pointOf(Position{0, 19.99})));
    EXPECT_FALSE(isFilled(rings, frame.pointOf(Position{0, 14})));
    EXPECT_FALSE(isFilled(rings, frame.pointOf(Position{0, -19})));
    for (const Picture::Point point : rings[0])
        EXPECT_LE(test::distanceBetween(point, MapFrame::middle), frame.rim() + 1e-6);
}

TEST(RimClip, ARingMayStartAnywhere) {
    const MapFrame frame = frameAt({0, 0}, 20 * degree);
    Places ring = square({0, 20}, 5);
    for (int turn = 0; turn < 4; ++turn) {
        for (const bool isReversed : {false, true}) {
            const Places used = isReversed ? Places(ring.rbegin(), ring.rend()) : ring;
            const auto rings = clippedArea(frame, {used}, insideOf({0, 20}, 5));
            ASSERT_EQ(rings.size(), 1U) << turn;
            EXPECT_TRUE(isFilled(rings, frame.pointOf(Position{0, 19})));
            EXPECT_TRUE(isFilled(rings, frame.pointOf(Position{4, 18})));
            EXPECT_TRUE(isFilled(rings, frame.pointOf(Position{-4, 18})));
            EXPECT_FALSE(isFilled(rings, frame.pointOf(Position{0, 14})));
            EXPECT_FALSE(isFilled(rings, frame.pointOf(Position{6, 18})));
        }
        ring.insert(ring.begin(), ring.back());
        ring.pop_back();
    }
}

TEST(RimClip, ARingAroundTheAntipodeLeavesItsInsideAtTheRim) {
    const MapFrame frame = frameAt({0, 0});
    const auto rings = clippedArea(frame, {square({0, 180}, 5)}, insideOf({0, 180}, 5));
    ASSERT_EQ(rings.size(), 2U) << "the rim belongs to it";
    EXPECT_TRUE(isFilled(rings, frame.pointOf(Position{0, 178})));
    EXPECT_TRUE(isFilled(rings, frame.pointOf(Position{3, -178})));
    EXPECT_FALSE(isFilled(rings, frame.pointOf(Position{0, 170})));
    EXPECT_FALSE(isFilled(rings, MapFrame::middle));
}

TEST(RimClip, AnIsletAtTheRimDoesNotDecideForAllOfIt) {
    // Three places of the rim are asked where no ring meets it.
    const auto ringsWhere = [](std::set<int> inside) {
        int asked = 0;
        return clippedArea(frameAt({0, 0}, 20 * degree), {},
                           [&](const Direction&) { return inside.contains(asked++); });
    };
    for (const int islet : {0, 1, 2})
        EXPECT_TRUE(ringsWhere({islet}).empty()) << islet;
    for (const int lake : {0, 1, 2}) {
        std::set<int> land{0, 1, 2};
        land.erase(lake);
        EXPECT_EQ(ringsWhere(land).size(), 1U) << lake;
    }
}

TEST(RimClip, ARingOutsideOfTheCentreIsFilledInside) {
    // All of the world but a square around the antipode.
    const MapFrame frame = frameAt({0, 0});
    const auto isInside = insideOf({0, 180}, 5);
    const auto rings = clippedArea(frame, {square({0, 180}, 5)},
                                   [&](const Direction& place) { return !isInside(place); });
    ASSERT_EQ(rings.size(), 1U);
    EXPECT_FALSE(isFilled(rings, frame.pointOf(Position{0, 178})));
    EXPECT_TRUE(isFilled(rings, MapFrame::middle));
}

TEST(RimClip, ARingWithinARingIsAHole) {
    const MapFrame frame = frameAt({0, 0}, 20 * degree);
    const Position middle{0, 20};
    const auto outer = insideOf(middle, 8), inner = insideOf(middle, 3);
    const auto rings =
        clippedArea(frame, {square(middle, 8), square(middle, 3)},
                    [&](const Direction& place) { return outer(place) && !inner(place); });
    EXPECT_FALSE(isFilled(rings, frame.pointOf(Position{0, 19.9})));
    EXPECT_TRUE(isFilled(rings, frame.pointOf(Position{0, 15})));
    EXPECT_TRUE(isFilled(rings, frame.pointOf(Position{5, 18})));
    EXPECT_FALSE(isFilled(rings, frame.pointOf(Position{0, 11})));
}

TEST(RimClip, ARingThatGoesRoundTheCentreMayCrossTheRimOften) {
    // A star around the centre: its points are beyond the rim.
    const MapFrame frame = frameAt({90, 0}, 20 * degree);
    Places star;
    for (int i = 0; i < 12; ++i)
        star.push_back({i % 2 == 0 ? 60.0 : 85.0, i * 30.0});
    const auto isPoint = [](const Direction& place) {
        // At 20 degrees from the pole the points are some degrees wide.
        const double longitude = positionOf(place).longitude;
        return std::fabs(std::remainder(longitude, 60)) < 5;
    };
    const auto rings = clippedArea(frame, {star}, isPoint);
    ASSERT_EQ(rings.size(), 1U);
    EXPECT_TRUE(isFilled(rings, MapFrame::middle));
    for (int i = 0; i < 12; ++i)
        EXPECT_EQ(isFilled(rings, frame.pointOf(Position{71, i * 30.0})), i % 2 == 0) << i;
}

TEST(RimClip, ARingOfOnePointIsHarmless) {
    const MapFrame frame = frameAt({0, 0});
    const auto nowhere = [](const Direction&) { return false; };
    const auto rings = clippedArea(frame, {{{10, 10}}}, nowhere);
    ASSERT_EQ(rings.size(), 1U);
    EXPECT_EQ(rings[0].size(), 1U);
}

TEST(RimClip, TheMajorityOfTheRimDecides) {
    // Two of three places that are asked say no: an islet below the third one was left out.
    const MapFrame frame = frameAt({90, 0}, 20 * degree);
    const auto islet = [](const Direction& place) {
        return std::fabs(positionOf(place).longitude - 90) < 1;
    };
    EXPECT_TRUE(clippedArea(frame, {}, islet).empty());
    EXPECT_EQ(clippedArea(frame, {}, [&](const Direction& place) { return !islet(place); }).size(),
              1U);
}

} // namespace

} // namespace orbisgrid
