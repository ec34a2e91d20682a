#include "map/land.h"

#include "tests/support/hexadecimal.h"
#include "tests/support/picture_probe.h"
#include "tests/support/world_outlines.h"

#include <gtest/gtest.h>

namespace orbisgrid {

namespace {

using test::worldOutlines;

std::size_t pointsOf(const std::vector<Picture::Polyline>& lines) {
    std::size_t count = 0;
    for (const Picture::Polyline& line : lines)
        count += line.size();
    return count;
}

TEST(Land, HasMoreDetailTheCloserOneLooks) {
    // Of the whole world some 24,000 of 79,000 points count; close to the rim all of them do.
    const std::size_t ofWorld =
        pointsOf(landOf(MapFrame(MapView{{50.9, 4}}), worldOutlines()).rings);
    EXPECT_LT(ofWorld, 40'000U);
    EXPECT_GT(ofWorld, 20'000U);
    // Great Britain's coast lies in both.
    const auto coastOfWales = [](double kilometres) {
        const MapFrame frame(MapView{{52.5, -4}, kilometres});
        std::size_t count = 0;
        for (const Picture::Polyline& ring : landOf(frame, worldOutlines()).rings) {
            for (const Picture::Point point : ring) {
                const auto place = frame.placeAt(point);
                count += place && std::fabs(place->latitude - 52.5) < 0.8 &&
                                 std::fabs(place->longitude + 4) < 1
                             ? 1
                             : 0;
            }
        }
        return count;
    };
    EXPECT_GT(coastOfWales(300), coastOfWales(8000));
    EXPECT_GT(coastOfWales(8000), coastOfWales(18000));
}

TEST(Land, ShowsEachIslet) {
    const MapFrame frame(MapView{{50.9, 4}});
    EXPECT_EQ(landOf(frame, worldOutlines()).rings.size(), worldOutlines().coasts().size());
}

TEST(Land, LeavesOutWhatIsFarBeyondTheRim) {
    const MapFrame frame(MapView{{50.9, 4}, 300});
    EXPECT_LT(landOf(frame, worldOutlines()).rings.size(), 30U);
    EXPECT_LT(bordersOf(frame, worldOutlines()).lines.size(), 30U);
    EXPECT_GT(bordersOf(frame, worldOutlines()).lines.size(), 3U);
}

TEST(Land, BordersAreDrawnAndHaveTheirRole) {
    const MapFrame frame(MapView{{49.2, 7}, 200});
    const Picture::Lines borders = bordersOf(frame, worldOutlines());
    EXPECT_EQ(borders.role, Role::border);
    EXPECT_EQ(landOf(frame, worldOutlines()).role, Role::land);
    double least = 1000;
    for (const Picture::Polyline& line : borders.lines) {
        for (std::size_t i = 1; i < line.size(); ++i)
            least = std::fmin(least, test::distanceToEdge(MapFrame::middle, line[i - 1], line[i]));
    }
    EXPECT_LT(least, 100) << "between France and Germany";
}

TEST(Land, LinesOfNoDetailAreLeftOut) {
    // A triangle and a border of points that no large map needs.
    std::string bytes =
        "ORBIMAP1" + test::bytesOfHexadecimal("01 03 0000 A00600 9F06A006 01 02 0000 00A006 0000");
    const std::uint32_t checksum = checksumOf(bytes);
    for (unsigned shift = 0; shift < 32; shift += 8)
        bytes += static_cast<char>(checksum >> shift);
    const auto outlines = Outlines::decode(bytes);
    ASSERT_TRUE(outlines);
    const MapFrame world(MapView{{0, 0}}), close(MapView{{0, 0}, 100});
    EXPECT_TRUE(landOf(world, *outlines).rings.empty());
    EXPECT_TRUE(bordersOf(world, *outlines).lines.empty());
    EXPECT_EQ(landOf(close, *outlines).rings.size(), 1U);
    EXPECT_EQ(bordersOf(close, *outlines).lines.size(), 1U);
}

} // namespace

} // namespace orbisgrid
