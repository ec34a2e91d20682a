#include "map/rose.h"

#include "tests/support/picture_probe.h"
#include "tests/support/table.h"

#include <set>
#include <sstream>

namespace orbisgrid {

namespace {

using test::Row;

class RingTest : public testing::TestWithParam<Row> {};

TEST_P(RingTest, HasTheKilometresOfTheRow) {
    const Row& row = GetParam();
    std::ostringstream kilometres;
    const char* before = "";
    for (const double ring : ringKilometres(row.number("radius"))) {
        kilometres << before << ring;
        before = " ";
    }
    EXPECT_EQ(kilometres.str(), row["rings"]);
}

INSTANTIATE_TEST_SUITE_P(Rows, RingTest, testing::ValuesIn(test::readTable("map_rings.tsv")),
                         test::testName);

TEST(Rings, ThreeToSixAreSeenWhateverTheRadius) {
    const std::set<double> factors{1, 2, 5};
    for (double radius = MapFrame::leastKilometres; radius <= halfCircumference; radius += 1) {
        const auto rings = ringKilometres(radius);
        ASSERT_GE(rings.size(), 3U) << radius;
        ASSERT_LE(rings.size(), 6U) << radius;
        ASSERT_LE(rings.back(), radius * 0.99) << radius;
        double factor = rings[0];
        while (factor >= 10)
            factor /= 10;
        ASSERT_TRUE(factors.contains(factor)) << radius << ' ' << rings[0];
        for (std::size_t i = 0; i < rings.size(); ++i)
            ASSERT_EQ(rings[i], static_cast<double>(i + 1) * rings[0]);
    }
}

TEST(Ticks, StandOutsideOfTheRimEachTenDegrees) {
    const MapFrame frame(MapView{{50, 4}});
    const Picture::Lines ticks = ticksOf(frame);
    EXPECT_EQ(ticks.role, Role::tick);
    ASSERT_EQ(ticks.lines.size(), 36U);
    for (std::size_t i = 0; i < ticks.lines.size(); ++i) {
        ASSERT_EQ(ticks.lines[i].size(), 2U);
        const double inner = test::distanceBetween(ticks.lines[i][0], MapFrame::middle);
        const double outer = test::distanceBetween(ticks.lines[i][1], MapFrame::middle);
        EXPECT_NEAR(inner, frame.rim(), 1e-9);
        EXPECT_NEAR(outer - inner, i % 3 == 0 ? 8 : 4, 1e-9) << "the third ones are longer";
    }
    EXPECT_NEAR(ticks.lines[9][0].x, MapFrame::middle.x + frame.rim(), 1e-9) << "90: to the right";
    EXPECT_NEAR(ticks.lines[18][0].y, MapFrame::middle.y + frame.rim(), 1e-9) << "180: down";
}

TEST(Bearings, AreOutsideOfTheTicksAndInThePicture) {
    for (const double size : {8.0, 14.0, 40.0}) {
        const MapFrame frame(MapView{{50, 4}, 3000, size});
        std::vector<Picture::Label> labels = cardinalsOf(frame);
        EXPECT_EQ(labels.size(), 4U);
        const auto bearings = bearingsOf(frame);
        EXPECT_EQ(bearings.size(), 8U);
        labels.insert(labels.end(), bearings.begin(), bearings.end());
        for (const Picture::Label& label : labels) {
            const LabelBox box = boxOf(label);
            for (const double x : {box.left, box.right}) {
                for (const double y : {box.top, box.bottom})
                    EXPECT_GT(test::distanceBetween({x, y}, MapFrame::middle), frame.rim() + 2)
                        << toUtf8(label.text);
            }
            LabelPlacer placer;
            EXPECT_TRUE(placer.place({label})) << toUtf8(label.text) << size;
        }
    }
}

TEST(Bearings, AreThirtiethsWithoutTheCardinals) {
    const MapFrame frame(MapView{{50, 4}});
    std::string texts;
    for (const Picture::Label& label : bearingsOf(frame)) {
        EXPECT_EQ(label.role, Role::bearingLabel);
        texts.append(toUtf8(label.text)).append(" ");
    }
    EXPECT_EQ(texts, "30° 60° 120° 150° 210° 240° 300° 330° ");
    const auto cardinals = cardinalsOf(frame);
    EXPECT_EQ(toUtf8(cardinals[0].text), "N");
    EXPECT_LT(cardinals[0].place.y, MapFrame::middle.y - frame.rim()) << "up";
    EXPECT_EQ(toUtf8(cardinals[1].text), "E");
    EXPECT_GT(cardinals[1].place.x, MapFrame::middle.x + frame.rim()) << "right";
    EXPECT_EQ(toUtf8(cardinals[2].text), "S");
    EXPECT_GT(cardinals[2].place.y, MapFrame::middle.y + frame.rim()) << "down";
    EXPECT_EQ(toUtf8(cardinals[3].text), "W");
    EXPECT_LT(cardinals[3].place.x, MapFrame::middle.x - frame.rim()) << "left";
    for (const Picture::Label& label : cardinals)
        EXPECT_EQ(label.role, Role::cardinal);
}

TEST(RingLabels, StandOnTheirRing) {
    const MapFrame frame(MapView{{50, 4}, 3000});
    const auto labels = ringLabels(frame, 1000);
    EXPECT_EQ(labels.size(), 8U);
    for (const Picture::Label& label : labels) {
        EXPECT_EQ(toUtf8(label.text), "1000 km");
        const LabelBox box = boxOf(label);
        const Picture::Point middle{(box.left + box.right) / 2, (box.top + box.bottom) / 2};
        EXPECT_NEAR(test::distanceBetween(middle, MapFrame::middle), frame.rim() / 3, 1e-9);
    }
}

} // namespace

} // namespace orbisgrid
