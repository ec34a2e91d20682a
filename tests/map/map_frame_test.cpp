#include "map/map_frame.h"

#include "tests/support/picture_probe.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace orbisgrid {

namespace {

constexpr double none = std::numeric_limits<double>::quiet_NaN();
constexpr double endless = std::numeric_limits<double>::infinity();

TEST(MapFrame, NorthIsUp) {
    const MapFrame frame(MapView{{50, 4}, 3000});
    EXPECT_LT(test::distanceBetween(frame.pointOf(Position{50, 4}), MapFrame::middle), 1e-9);
    const Picture::Point north = frame.pointOf(PlanePoint{0, 3000});
    EXPECT_NEAR(north.x, 500, 1e-9);
    EXPECT_NEAR(north.y, 500 - frame.rim(), 1e-9);
    EXPECT_NEAR(frame.pointOf(PlanePoint{1500, 0}).x, 500 + frame.rim() / 2, 1e-9);
    EXPECT_DOUBLE_EQ(frame.kilometresPerUnit() * frame.rim(), 3000);
}

TEST(MapFrame, ThereAndBack) {
    const MapFrame frame(MapView{{50, 4}, 3000});
    const auto place = frame.placeAt(frame.pointOf(Position{42, 12}));
    ASSERT_TRUE(place);
    EXPECT_NEAR(place->latitude, 42, 1e-9);
    EXPECT_NEAR(place->longitude, 12, 1e-9);
}

TEST(MapFrame, OutsideOfTheRimIsNoPlace) {
    const MapFrame frame(MapView{{50, 4}, 3000});
    EXPECT_TRUE(frame.placeAt({500, 500 + frame.rim() - 1e-6}));
    EXPECT_FALSE(frame.placeAt({500, 500 + frame.rim() + 1e-6}));
    EXPECT_FALSE(frame.placeAt({none, 500}));
    EXPECT_TRUE(frame.shows({50, 4}));
    EXPECT_FALSE(frame.shows({50, 60}));
}

TEST(MapFrame, TheWholeWorldIsShown) {
    const MapFrame frame(MapView{{50, 4}});
    EXPECT_TRUE(frame.shows({-50, -176}));
    EXPECT_TRUE(frame.shows({-50, -175.999}));
}

TEST(MapFrame, TakesItsValuesIntoTheirRanges) {
    EXPECT_EQ(MapFrame(MapView{{}, 99}).kilometres(), 100);
    EXPECT_EQ(MapFrame(MapView{{}, -1}).kilometres(), 100);
    EXPECT_EQ(MapFrame(MapView{{}, 20004}).kilometres(), halfCircumference);
    EXPECT_EQ(MapFrame(MapView{{}, endless}).kilometres(), halfCircumference);
    EXPECT_EQ(MapFrame(MapView{{}, none}).kilometres(), halfCircumference);
    EXPECT_EQ(MapFrame(MapView{{}, 500, 3}).textSize(), 4);
    EXPECT_EQ(MapFrame(MapView{{}, 500, 101}).textSize(), 100);
    EXPECT_EQ(MapFrame(MapView{{}, 500, none}).textSize(), 14);
    EXPECT_EQ(MapFrame(MapView{{none, 4}}).projection().centre(), Position{});
    EXPECT_EQ(MapFrame(MapView{{50, endless}}).projection().centre(), Position{});
}

TEST(MapFrame, ACentreThatIsNoNumberIsTheOrigin) {
    for (const Position centre : {Position{none, 10}, Position{10, none}, Position{none, none},
                                  Position{1e300, 0}, Position{0, -1.7e308}}) {
        const auto place = MapFrame({.centre = centre}).placeAt(MapFrame::middle);
        ASSERT_TRUE(place);
        EXPECT_EQ(*place, Position());
    }
}

TEST(MapFrame, LargerTextsTakeRoomFromTheMap) {
    EXPECT_NEAR(MapFrame(MapView{}).rim(), 500 - 12 - 2.9 * 14, 1e-9);
    EXPECT_LT(MapFrame(MapView{{}, 500, 20}).rim(), MapFrame(MapView{{}, 500, 10}).rim());
    EXPECT_EQ(MapFrame(MapView{{}, 500, 100}).rim(), 300);
}

} // namespace

} // namespace orbisgrid
