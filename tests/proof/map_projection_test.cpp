#include "map/map_frame.h"
#include "tests/proof/random_numbers.h"

#include <GeographicLib/AzimuthalEquidistant.hpp>
#include <GeographicLib/Geodesic.hpp>
#include <gtest/gtest.h>

#include <cmath>
#include <iostream>

namespace orbisgrid {

namespace {

constexpr int pairs = 100'000;
constexpr double allowed = 1e-9 * earthRadius; // km

/// A tenth of the places is close to the centre or to its antipode (not closer than the other
/// library is exact), some are poles.
Position placeFor(test::RandomNumbers& random, Position centre, int pair) {
    const double spread = std::pow(10, random.between(-3, 0));
    const Position beside{random.between(spread / 2, spread), random.between(-spread, spread)};
    switch (pair % 20) {
    case 0:
        return {std::fmax(-90, std::fmin(90, centre.latitude + beside.latitude)),
                centre.longitude + beside.longitude};
    case 1:
        return {std::fmax(-90, std::fmin(90, beside.latitude - centre.latitude)),
                centre.longitude + 180 + beside.longitude};
    case 2:
        return {pair % 40 == 2 ? 90.0 : -90.0, random.between(-180, 180)};
    default:
        return {random.between(-90, 90), random.between(-180, 180)};
    }
}

Position centreFor(test::RandomNumbers& random, int pair) {
    if (pair % 50 == 0)
        return {pair % 100 == 0 ? 90.0 : -90.0, random.between(-180, 180)};
    return {random.between(-90, 90), random.between(-180, 180)};
}

double apart(PlanePoint one, PlanePoint other) {
    return std::hypot(one.x - other.x, one.y - other.y);
}

double apart(Position one, Position other) {
    const Direction difference = combined(directionOf(one), 1, directionOf(other), -1);
    return std::sqrt(dot(difference, difference)) * earthRadius;
}

TEST(MapProjection, AgreesWithGeographicLibOnASphere) {
    const GeographicLib::Geodesic sphere(earthRadius, 0);
    const GeographicLib::AzimuthalEquidistant reference(sphere);
    test::RandomNumbers random(1510);
    double mostForward = 0, mostInverse = 0, mostBack = 0;
    for (int pair = 0; pair < pairs; ++pair) {
        const Position centre = centreFor(random, pair);
        const Position place = placeFor(random, centre, pair);
        const Azimuthal projection(centre);
        PlanePoint expected;
        reference.Forward(centre.latitude, centre.longitude, place.latitude, place.longitude,
                          expected.x, expected.y);
        const PlanePoint point = projection.project(place);
        mostForward = std::fmax(mostForward, apart(point, expected));
        const double azimuth = random.between(-std::numbers::pi, std::numbers::pi);
        const double distance = halfCircumference * random.between(0, 1);
        const PlanePoint other{distance * std::sin(azimuth), distance * std::cos(azimuth)};
        Position expectedPlace;
        reference.Reverse(centre.latitude, centre.longitude, other.x, other.y,
                          expectedPlace.latitude, expectedPlace.longitude);
        const auto found = projection.placeAt(other);
        ASSERT_TRUE(found);
        mostInverse = std::fmax(mostInverse, apart(*found, expectedPlace));
        const auto back = projection.placeAt(point);
        ASSERT_TRUE(back);
        mostBack = std::fmax(mostBack, apart(*back, place));
    }
    std::cout << "forward at most " << mostForward * 1e9 << " micrometres apart, inverse "
              << mostInverse * 1e9 << ", there and back " << mostBack * 1e9 << "; allowed "
              << allowed * 1e9 << '\n';
    EXPECT_LE(mostForward, allowed);
    EXPECT_LE(mostInverse, allowed);
    EXPECT_LE(mostBack, allowed);
    EXPECT_GT(mostForward, 0) << "they are two";
}

TEST(MapProjection, APixelsPlaceIsDrawnAtThatPixel) {
    test::RandomNumbers random(1511);
    double most = 0;
    for (int i = 0; i < pairs; ++i) {
        const MapFrame frame(MapView{{random.between(-90, 90), random.between(-180, 180)},
                                     random.between(100, halfCircumference)});
        const Picture::Point point{random.between(0, 1000), random.between(0, 1000)};
        const auto place = frame.placeAt(point);
        if (!place)
            continue;
        const Picture::Point drawn = frame.pointOf(*place);
        most = std::fmax(most, std::hypot(drawn.x - point.x, drawn.y - point.y));
    }
    std::cout << "at most " << most << " units apart\n";
    EXPECT_LT(most, 1e-6);
}

} // namespace

} // namespace orbisgrid
