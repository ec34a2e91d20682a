#include "map/direction.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

namespace orbisgrid {

namespace {

void expectDirection(const Direction& direction, const Direction& expected) {
    EXPECT_NEAR(direction.x, expected.x, 1e-15);
    EXPECT_NEAR(direction.y, expected.y, 1e-15);
    EXPECT_NEAR(direction.z, expected.z, 1e-15);
}

TEST(Direction, HasItsAxesAtTheEquatorAndThePole) {
    expectDirection(directionOf({0, 0}), {1, 0, 0});
    expectDirection(directionOf({0, 90}), {0, 1, 0});
    expectDirection(directionOf({90, 12}), {0, 0, 1});
    expectDirection(directionOf({-90, 12}), {0, 0, -1});
}

TEST(Direction, GoesOnBehindThePole) {
    expectDirection(directionOf({100, 0}), directionOf({80, 180}));
}

TEST(Direction, ThereAndBack) {
    for (const Position place : {Position{12.5, 34.5}, {-89.5, -170}, {0, 180}, {45, -90}}) {
        const Position back = positionOf(directionOf(place));
        EXPECT_NEAR(back.latitude, place.latitude, 1e-12);
        EXPECT_NEAR(back.longitude, place.longitude, 1e-12);
    }
}

TEST(Direction, ItsLengthDoesNotMatterForThePlace) {
    const Direction twice = combined(directionOf({30, 40}), 2, {}, 1);
    EXPECT_NEAR(positionOf(twice).latitude, 30, 1e-12);
    expectDirection(normalised(twice), directionOf({30, 40}));
}

TEST(Direction, APerpendicularOneIsOfLengthOne) {
    for (const Position place : {Position{0, 0}, {90, 0}, {-90, 0}, {30, 0}, {31, 120}, {60, 0}}) {
        const Direction direction = directionOf(place);
        const Direction across = perpendicular(direction);
        EXPECT_NEAR(dot(direction, across), 0, 1e-15);
        EXPECT_NEAR(dot(across, across), 1, 1e-14);
    }
}

TEST(Direction, NumbersOfAHundredTurnsAreAPlace) {
    EXPECT_TRUE(isPlace({90.02, -180}));
    EXPECT_TRUE(isPlace({-36000, 36000}));
    EXPECT_FALSE(isPlace({36000.1, 0}));
    EXPECT_FALSE(isPlace({0, -36000.1}));
    EXPECT_FALSE(isPlace({std::nan(""), 0}));
    EXPECT_FALSE(isPlace({0, std::numeric_limits<double>::infinity()}));
}

TEST(Direction, AnglesAreRightBetweenNeighboursAndOpposites) {
    const Direction place = directionOf({12, 34});
    EXPECT_EQ(angleBetween(place, place), 0);
    EXPECT_NEAR(angleBetween(place, directionOf({12 + 1e-9, 34})), 1e-9 * std::numbers::pi / 180,
                1e-16);
    EXPECT_NEAR(angleBetween(place, directionOf({-12, -146})), std::numbers::pi, 1e-15);
    EXPECT_NEAR(angleBetween(directionOf({0, 0}), directionOf({0, 90})), std::numbers::pi / 2,
                1e-15);
    EXPECT_NEAR(angleBetween(directionOf({90, 0}), directionOf({-30, 7})), std::numbers::pi * 2 / 3,
                1e-15);
}

TEST(Direction, ThePolesHaveAPerpendicularOne) {
    EXPECT_EQ(dot(perpendicular({0, 0, 1}), perpendicular({0, 0, 1})), 1);
    EXPECT_EQ(dot(perpendicular({0, 0, -1}), perpendicular({0, 0, -1})), 1);
    EXPECT_EQ(perpendicular({1, 0, 0}).x, 0);
}

TEST(Direction, EachAxisCounts) {
    EXPECT_EQ((Direction{1, 2, 3}), (Direction{1, 2, 3}));
    EXPECT_NE((Direction{1, 2, 3}), (Direction{0, 2, 3}));
    EXPECT_NE((Direction{1, 2, 3}), (Direction{1, 0, 3}));
    EXPECT_NE((Direction{1, 2, 3}), (Direction{1, 2, 0}));
}

TEST(Direction, TheProductsAreThoseOfVectors) {
    EXPECT_EQ(dot({1, 2, 3}, {4, 5, 6}), 32);
    EXPECT_EQ(cross({1, 2, 3}, {4, 5, 7}), (Direction{-1, 5, -3}));
    EXPECT_EQ(cross({1, 0, 0}, {0, 1, 0}), (Direction{0, 0, 1}));
    EXPECT_EQ(combined({1, 2, 3}, 2, {10, 20, 30}, 3), (Direction{32, 64, 96}));
}

} // namespace

} // namespace orbisgrid
