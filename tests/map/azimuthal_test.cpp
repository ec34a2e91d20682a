#include "map/azimuthal.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace orbisgrid {

namespace {

constexpr double quarter = halfCircumference / 2;
constexpr double metre = 0.001;

void expectPoint(PlanePoint point, PlanePoint expected, double tolerance = 1e-9) {
    EXPECT_NEAR(point.x, expected.x, tolerance);
    EXPECT_NEAR(point.y, expected.y, tolerance);
}

TEST(Azimuthal, ItsCentreIsTheOrigin) {
    expectPoint(Azimuthal({50.9375, 4.041667}).project({50.9375, 4.041667}), {0, 0});
}

TEST(Azimuthal, ItsOriginIsTheCentreToTheLastBit) {
    for (double latitude = -90; latitude <= 90; latitude += 1.7) {
        for (double longitude = -180; longitude <= 180; longitude += 3.1) {
            const Position centre{latitude, longitude};
            ASSERT_EQ(Azimuthal(centre).placeAt({0, 0}), centre) << latitude << " " << longitude;
        }
    }
    const auto place = Azimuthal({10, 190}).placeAt({0, 0});
    ASSERT_TRUE(place);
    EXPECT_NEAR(place->longitude, -170, 1e-9);
    EXPECT_NEAR(Azimuthal({100, 10}).placeAt({0, 0})->latitude, 80, 1e-9) << "behind the pole";
}

TEST(Azimuthal, NorthIsUpAndEastIsRight) {
    const Azimuthal projection({0, 0});
    expectPoint(projection.project({30, 0}), {0, quarter / 3});
    expectPoint(projection.project({0, 30}), {quarter / 3, 0});
    expectPoint(projection.project({-30, 0}), {0, -quarter / 3});
    expectPoint(projection.project({0, -30}), {-quarter / 3, 0});
}

TEST(Azimuthal, DistancesFromTheCentreAreTrue) {
    const PlanePoint point = Azimuthal({50.9375, 4.041667}).project({42.02083, -71.95834});
    EXPECT_NEAR(std::hypot(point.x, point.y), 5637.024, 0.001);
    EXPECT_NEAR(std::atan2(point.x, point.y) * 180 / std::numbers::pi + 360, 291.386, 0.001);
}

TEST(Azimuthal, FromTheNorthPoleUpIsTheMeridianBehindIt) {
    const Azimuthal projection({90, 0});
    expectPoint(projection.project({60, 180}), {0, quarter / 3});
    expectPoint(projection.project({60, 90}), {quarter / 3, 0});
    expectPoint(projection.project({60, 0}), {0, -quarter / 3});
    expectPoint(Azimuthal({90, 30}).project({60, -150}), {0, quarter / 3});
}

TEST(Azimuthal, FromTheSouthPoleUpIsItsOwnMeridian) {
    const Azimuthal projection({-90, 0});
    expectPoint(projection.project({-60, 0}), {0, quarter / 3});
    expectPoint(projection.project({-60, 90}), {quarter / 3, 0});
    expectPoint(projection.project({-60, 180}), {0, -quarter / 3});
}

TEST(Azimuthal, TheAntipodeIsItsNorthernmostPoint) {
    expectPoint(Azimuthal({0, 0}).project({0, 180}), {0, halfCircumference}, 1e-9);
    expectPoint(Azimuthal({90, 0}).project({-90, 0}), {0, halfCircumference}, 1e-9);
    expectPoint(Azimuthal({30, 40}).project({-30, -140}), {0, halfCircumference}, 1e-9);
}

TEST(Azimuthal, KeepsTheDirectionOfAMetre) {
    const double degrees = metre / earthRadius * 180 / std::numbers::pi;
    const Azimuthal projection({50, 4});
    expectPoint(projection.project({50 + degrees, 4}), {0, metre}, 1e-10);
    expectPoint(projection.project({50, 4 + degrees}),
                {metre * std::cos(50 * std::numbers::pi / 180), 0}, 1e-10);
}

TEST(Azimuthal, KeepsTheDirectionOfAMicrometre) {
    const double degrees = 1e-9 / earthRadius * 180 / std::numbers::pi;
    expectPoint(Azimuthal({0, 0}).project({0, degrees}), {1e-9, 0}, 1e-15);
    expectPoint(Azimuthal({0, 0}).project({-degrees, 0}), {0, -1e-9}, 1e-15);
    // 50 degrees and a hundred steps of the doubles there, which are not quite a micrometre.
    const double beside = 50 + 100 * 0x1p-47;
    expectPoint(Azimuthal({50, 4}).project({beside, 4}),
                {0, 100 * 0x1p-47 * std::numbers::pi / 180 * earthRadius}, 1e-16);
}

TEST(Azimuthal, KeepsTheDirectionOfAMetreFromTheAntipode) {
    const double degrees = metre / earthRadius * 180 / std::numbers::pi;
    const PlanePoint north = Azimuthal({50, 4}).project({-50 + degrees, -176});
    expectPoint(north, {0, halfCircumference - metre}, 1e-8);
    const PlanePoint south = Azimuthal({50, 4}).project({-50 - degrees, -176});
    expectPoint(south, {0, -halfCircumference + metre}, 1e-8);
}

TEST(Azimuthal, TheDateLineIsNoBorder) {
    const Azimuthal projection({10, 179});
    const PlanePoint east = projection.project({10, -179}), same = projection.project({10, 181});
    expectPoint(east, same);
    EXPECT_GT(east.x, 0);
    EXPECT_LT(east.x, 250);
}

TEST(Azimuthal, ThereAndBack) {
    for (const double latitude : {-90.0, -45.5, 0.0, 89.99, 90.0}) {
        const Azimuthal projection({latitude, 77});
        for (const Position place : {Position{12, 34}, {-89, 170}, {89, -170}, {45, 77}}) {
            const auto back = projection.placeAt(projection.project(place));
            ASSERT_TRUE(back);
            EXPECT_NEAR(back->latitude, place.latitude, 1e-9);
            EXPECT_NEAR(back->longitude, place.longitude, 1e-9);
        }
    }
}

TEST(Azimuthal, BeyondTheAntipodeIsNothing) {
    const Azimuthal projection({50, 4});
    EXPECT_TRUE(projection.placeAt({0, halfCircumference}));
    EXPECT_FALSE(projection.placeAt({0, halfCircumference + metre}));
    EXPECT_FALSE(projection.placeAt({std::numeric_limits<double>::quiet_NaN(), 0}));
    EXPECT_FALSE(projection.placeAt({std::numeric_limits<double>::infinity(), 0}));
}

TEST(Azimuthal, TheOriginIsAPlaceOfTheWorldWhateverTheCentreIs) {
    const std::pair<Position, Position> centres[] = {{{90.5, 10}, {89.5, -170}},
                                                     {{-90.5, 10}, {-89.5, -170}},
                                                     {{10, 180.5}, {10, -179.5}},
                                                     {{10, -180.5}, {10, 179.5}}};
    for (const auto& [centre, same] : centres) {
        const auto place = Azimuthal(centre).placeAt({0, 0});
        ASSERT_TRUE(place);
        EXPECT_NEAR(place->latitude, same.latitude, 1e-9);
        EXPECT_NEAR(place->longitude, same.longitude, 1e-9);
    }
}

TEST(Azimuthal, TheOriginIsTheCentre) {
    const auto place = Azimuthal({50, 4}).placeAt({0, 0});
    ASSERT_TRUE(place);
    EXPECT_NEAR(place->latitude, 50, 1e-12);
    EXPECT_NEAR(place->longitude, 4, 1e-12);
    EXPECT_EQ(Azimuthal({50, 4}).centre(), (Position{50, 4}));
}

TEST(Azimuthal, ItsAxesAreAtRightAngles) {
    const Azimuthal projection({-33, 151});
    EXPECT_NEAR(dot(projection.zenith(), projection.east()), 0, 1e-15);
    EXPECT_NEAR(dot(projection.zenith(), projection.north()), 0, 1e-15);
    const Direction east = cross(projection.north(), projection.zenith());
    EXPECT_NEAR(dot(east, projection.east()), 1, 1e-15);
}

} // namespace

} // namespace orbisgrid
