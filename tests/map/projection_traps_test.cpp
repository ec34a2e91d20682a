#include "map/path_map.h"
#include "tests/support/picture_probe.h"
#include "tests/support/world_outlines.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace orbisgrid {

namespace {

using test::isFilled;

/// A picture and its frame.
struct World {
    MapFrame frame;
    Picture picture;

    explicit World(Position centre, double kilometres = halfCircumference)
        : World(optionsFor(centre, kilometres)) {}

    explicit World(const PathMapOptions& options)
        : frame(options.view)
        , picture(pathMap(options)) {}

    bool isLandAt(Position place) const {
        return isFilled(picture, Role::land, frame.pointOf(place));
    }

    bool isNightAt(Position place) const {
        return isFilled(picture, Role::night, frame.pointOf(place));
    }

    static PathMapOptions optionsFor(Position centre, double kilometres = halfCircumference) {
        PathMapOptions options;
        options.view = {centre, kilometres};
        options.outlines = &test::worldOutlines();
        return options;
    }
};

/// How much of the rim is filled, just within it: 0 to 360.
int landAtRim(const World& world) {
    int count = 0;
    for (int degrees = 0; degrees < 360; ++degrees) {
        const double azimuth = degrees * std::numbers::pi / 180;
        const double radius = world.frame.rim() - 0.01;
        count += isFilled(world.picture, Role::land,
                          {500 + radius * std::sin(azimuth), 500 - radius * std::cos(azimuth)})
                     ? 1
                     : 0;
    }
    return count;
}

struct Known {
    Position position;
    bool isLand;
};

constexpr Known knownPlaces[] = {
    {{50.8, 4.6}, true},   {{-25, 135}, true},  {{75, -40}, true},  {{-80, 20}, true},
    {{-85, -120}, true},   {{40, -100}, true},  {{-10, -60}, true}, {{60, 100}, true},
    {{67, 179.5}, true},   {{67, -178}, true},  {{30, -40}, false}, {{-40, 80}, false},
    {{20, -160.5}, false}, {{85, 100}, false},  {{-60, 0}, false},  {{0, 179}, false},
    {{-50, -120}, false},  {{42, 50.5}, false}, {{15, 88}, false},  {{35, 18}, false}};

void expectKnownPlaces(const World& world) {
    for (const auto& [position, isLand] : knownPlaces) {
        if (!world.frame.shows(position))
            continue;
        EXPECT_EQ(world.isLandAt(position), isLand)
            << position.latitude << ' ' << position.longitude;
    }
}

TEST(Traps, ACentreWhoseAntipodeLiesOnLand) {
    const World newZealand(Position{-41.3, 174.8}), hawaii(Position{21.3, -157.8});
    EXPECT_EQ(landAtRim(newZealand), 360) << "Spain is around it";
    expectKnownPlaces(newZealand);
    EXPECT_EQ(landAtRim(hawaii), 360) << "Botswana is around it";
    expectKnownPlaces(hawaii);
    const World europe(Position{50.9, 4.0});
    EXPECT_EQ(landAtRim(europe), 0) << "the Pacific is around it";
    expectKnownPlaces(europe);
}

TEST(Traps, ThePolesAsCentre) {
    const World north(Position{90, 0}), south(Position{-90, 0});
    EXPECT_EQ(landAtRim(north), 360) << "Antarctica";
    expectKnownPlaces(north);
    EXPECT_EQ(landAtRim(south), 0) << "the Arctic Ocean";
    expectKnownPlaces(south);
    EXPECT_TRUE(isFilled(south.picture, Role::land, MapFrame::middle));
    EXPECT_FALSE(isFilled(north.picture, Role::land, MapFrame::middle));
    EXPECT_LT(north.frame.pointOf(Position{60, 180}).y, 500) << "up is 180";
    EXPECT_LT(south.frame.pointOf(Position{-60, 0}).y, 500) << "up is 0";
}

TEST(Traps, Antarctica) {
    for (const Position centre : {Position{50.9, 4.0}, {-70, 0}, {-70, 180}, {0, -180}, {89, 45}}) {
        const World world(centre);
        for (double longitude = -180; longitude < 180; longitude += 30)
            EXPECT_TRUE(world.isLandAt({-88, longitude})) << centre.latitude << ' ' << longitude;
        expectKnownPlaces(world);
    }
}

TEST(Traps, TheSouthPoleFromAHundredKilometres) {
    const World world({-90, 0}, 100);
    EXPECT_EQ(landAtRim(world), 360);
    EXPECT_TRUE(isFilled(world.picture, Role::land, {500, 500})) << "no hole at the pole";
    EXPECT_TRUE(isFilled(world.picture, Role::land, {500.2, 500.3}));
}

TEST(Traps, AMapInTheMiddleOfLandOrSea) {
    EXPECT_EQ(landAtRim(World({-25, 135}, 300)), 360) << "Australia";
    EXPECT_EQ(landAtRim(World({30, -40}, 300)), 0) << "the Atlantic";
    EXPECT_TRUE(isFilled(World({-25, 135}, 300).picture, Role::land, MapFrame::middle));
}

TEST(Traps, TheDateLineIsNotSeen) {
    const World world({67, 180}, 1000);
    expectKnownPlaces(world);
    for (double longitude = 178; longitude <= 182; longitude += 0.25)
        EXPECT_TRUE(world.isLandAt({67.5, longitude})) << longitude;
}

TEST(Traps, EveryRadiusShowsTheSame) {
    for (double kilometres = 100; kilometres < halfCircumference; kilometres *= 1.3) {
        for (const Position centre : {Position{50.9, 4.0}, {-41.3, 174.8}, {-90, 0}, {21, -157}})
            expectKnownPlaces(World(centre, kilometres));
    }
}

PathMapOptions nightOptions(Position centre, const char* moment) {
    PathMapOptions options = World::optionsFor(centre);
    options.outlines = nullptr;
    options.moment = parsedMoment(moment);
    return options;
}

TEST(Traps, NightIsWhereTheSunIsBelowTheHorizon) {
    const char* moment = "2026-06-21T12:00:00Z";
    const Direction sun = directionOf(subsolarPoint(*parsedMoment(moment)));
    for (const Position centre : {Position{50.9, 4.0}, {-41.3, 174.8}, {90, 0}, {-90, 0}}) {
        const World world(nightOptions(centre, moment));
        for (double latitude = -89; latitude < 90; latitude += 7) {
            for (double longitude = -179; longitude < 180; longitude += 7) {
                const double height = dot(directionOf({latitude, longitude}), sun);
                if (std::fabs(height) < 0.01)
                    continue;
                EXPECT_EQ(world.isNightAt({latitude, longitude}), height < 0)
                    << latitude << ' ' << longitude;
            }
        }
    }
}

TEST(Traps, NightsEdgePassesCloseByTheAntipode) {
    // Centres of which the antipode is some tenths of a degree, or nothing, away from the edge.
    const char* moment = "2026-09-23T00:05:00Z";
    const Position zenith = subsolarPoint(*parsedMoment(moment));
    const Direction sun = directionOf(zenith);
    for (const double beside : {0.0, 0.001, 0.01, 0.1, 1.0, 10.0}) {
        const World world(nightOptions({0.3, zenith.longitude + 90 + beside}, moment));
        const auto night = test::shapesOf<Picture::Area>(world.picture, Role::night).at(0);
        std::size_t looked = 0;
        for (const Picture::Polyline& ring : night.rings) {
            for (std::size_t i = 0; i < ring.size(); ++i) {
                const Picture::Point a = ring[i], b = ring[(i + 1) % ring.size()];
                const Picture::Point between{(a.x + b.x) / 2, (a.y + b.y) / 2};
                const double outwards = test::distanceBetween(between, MapFrame::middle);
                if (outwards > world.frame.rim() - 0.2)
                    continue; // along the rim
                EXPECT_LT(
                    test::distanceToCurve(world.frame, between,
                                          [&](const Direction& place) { return dot(place, sun); }),
                    0.3)
                    << beside;
                ++looked;
            }
        }
        EXPECT_GT(looked, 10U) << beside;
        EXPECT_TRUE(world.isNightAt({0, zenith.longitude + 180}));
        EXPECT_FALSE(world.isNightAt({0, zenith.longitude}));
    }
}

TEST(Traps, NightOfASmallMapIsAllOrNothing) {
    PathMapOptions options = nightOptions({50.9, 4.0}, "2026-06-21T12:00:00Z");
    options.view.radiusKilometres = 500;
    EXPECT_FALSE(isFilled(pathMap(options), Role::night, {500, 500}));
    options.moment = parsedMoment("2026-12-21T00:00:00Z");
    EXPECT_TRUE(isFilled(pathMap(options), Role::night, {500, 500}));
    EXPECT_TRUE(isFilled(pathMap(options), Role::night, {510, 480}));
}

} // namespace

} // namespace orbisgrid
