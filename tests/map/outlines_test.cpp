#include "map/outlines.h"

#include "tests/support/hexadecimal.h"
#include "tests/support/table.h"
#include "tests/support/world_outlines.h"

#include <cmath>
#include <numbers>

namespace orbisgrid {

namespace {

using test::worldOutlineBytes;
using test::worldOutlines;

std::string withChecksum(std::string bytes) {
    const std::uint32_t checksum = checksumOf(bytes);
    for (unsigned shift = 0; shift < 32; shift += 8)
        bytes += static_cast<char>(checksum >> shift);
    return bytes;
}

/// A file with one coast, a triangle of 0/0, 1/0 and 0/1 degrees (longitude first), and one border
/// from 0/0 to 0/1.
std::string smallBody() {
    const std::string coast("\x03\x00\x00\xA0\x06\x00\x9F\x06\xA0\x06", 10);
    const std::string border("\x02\x00\x00\x00\xA0\x06", 6);
    return "\x01" + coast + "\x01" + border;
}

std::string smallFile(const std::string& body, const std::string& details) {
    return withChecksum("ORBIMAP1" + body + details);
}

const std::string smallDetails("\xE4\x01", 2);

TEST(Checksum, IsThatOfTheStandard) {
    EXPECT_EQ(checksumOf("123456789"), 0xCBF43926U);
    EXPECT_EQ(checksumOf(""), 0U);
}

TEST(Outlines, ReadsLinesAndDetails) {
    const auto outlines = Outlines::decode(smallFile(smallBody(), smallDetails));
    ASSERT_TRUE(outlines);
    ASSERT_EQ(outlines->coasts().size(), 1U);
    ASSERT_EQ(outlines->borders().size(), 1U);
    const auto coast = outlines->pointsOf(outlines->coasts()[0]);
    ASSERT_EQ(coast.size(), 3U);
    EXPECT_EQ(coast[0], directionOf({0, 0}));
    EXPECT_EQ(coast[1], directionOf({0, 1}));
    EXPECT_EQ(coast[2], directionOf({1, 0}));
    const auto border = outlines->pointsOf(outlines->borders()[0]);
    ASSERT_EQ(border.size(), 2U);
    EXPECT_EQ(border[1], directionOf({1, 0}));
    const auto details = outlines->detailsOf(outlines->coasts()[0]);
    EXPECT_EQ(std::vector<std::uint8_t>(details.begin(), details.end()),
              (std::vector<std::uint8_t>{0, 1, 2}));
    const auto others = outlines->detailsOf(outlines->borders()[0]);
    EXPECT_EQ(std::vector<std::uint8_t>(others.begin(), others.end()),
              (std::vector<std::uint8_t>{3, 1}));
}

TEST(Outlines, LongitudesGoTheShorterWayRound) {
    // From 179.9975 degrees two units on: 180.0025 is 179.9975 west.
    const std::string coast("\x03\xFE\xE4\x08\x00\x04\x00\x00\x04", 9);
    const auto outlines = Outlines::decode(
        smallFile(std::string("\x01") + coast + std::string(1, '\0'), std::string(1, '\0')));
    ASSERT_TRUE(outlines);
    const auto points = outlines->pointsOf(outlines->coasts()[0]);
    EXPECT_EQ(points[0], directionOf({0, 179.9975}));
    EXPECT_EQ(points[1], directionOf({0, -179.9975}));
}

TEST(Outlines, ATruncatedFileIsNone) {
    const std::string whole = smallFile(smallBody(), smallDetails);
    for (std::size_t length = 0; length + 4 <= whole.size(); ++length) {
        EXPECT_FALSE(Outlines::decode(whole.substr(0, length))) << length;
        const std::string body = whole.substr(0, length);
        if (length + 4 == whole.size())
            break; // this is all of it but the checksum
        EXPECT_FALSE(Outlines::decode(withChecksum(body))) << length;
    }
}

TEST(Outlines, EachDamagedBitIsSeen) {
    const std::string whole = smallFile(smallBody(), smallDetails);
    for (std::size_t bit = 0; bit < whole.size() * 8; ++bit) {
        std::string damaged = whole;
        damaged[bit / 8] = static_cast<char>(damaged[bit / 8] ^ (1 << (bit % 8)));
        EXPECT_FALSE(Outlines::decode(damaged)) << bit;
    }
}

TEST(Outlines, AnotherFileIsNone) {
    EXPECT_FALSE(Outlines::decode(withChecksum("ORBIMAP2" + smallBody() + smallDetails)));
    EXPECT_FALSE(Outlines::decode("ORBIMAP1"));
    EXPECT_FALSE(Outlines::decode(""));
}

class OutlinesTest : public testing::TestWithParam<test::Row> {};

TEST_P(OutlinesTest, AreReadOrRefused) {
    const test::Row& row = GetParam();
    const auto outlines =
        Outlines::decode(withChecksum("ORBIMAP1" + test::bytesOfHexadecimal(row["bytes"])));
    ASSERT_EQ(outlines.has_value(), row["coasts"] != "-");
    if (!outlines)
        return;
    EXPECT_EQ(std::to_string(outlines->coasts().size()), row["coasts"]);
    EXPECT_EQ(std::to_string(outlines->borders().size()), row["borders"]);
}

INSTANTIATE_TEST_SUITE_P(Rows, OutlinesTest, testing::ValuesIn(test::readTable("map_outlines.tsv")),
                         test::testName);

TEST(Outlines, TheWorldIsWhole) {
    EXPECT_EQ(worldOutlines().coasts().size(), 1428U);
    EXPECT_EQ(worldOutlines().borders().size(), 362U);
    EXPECT_LE(worldOutlineBytes().size(), 400'000U);
}

TEST(Outlines, ACapHoldsEachPointOfItsLine) {
    for (const auto* lines : {&worldOutlines().coasts(), &worldOutlines().borders()}) {
        for (const Outlines::Line& line : *lines) {
            for (const Direction& point : worldOutlines().pointsOf(line)) {
                const Direction apart = combined(point, 1, line.middle, -1);
                const double distance = 2 * std::asin(std::sqrt(dot(apart, apart)) / 2);
                ASSERT_LE(distance, line.reach);
            }
        }
    }
}

TEST(Outlines, ALineAroundTheWorldHasNoCap) {
    // Around the equator in three steps of 120 degrees, 48000 units.
    const std::string coast("\x01\x03\x00\x00\x80\xEE\x05\x00\x80\xEE\x05\x00", 12);
    const std::string none(1, '\0');
    const auto outlines = Outlines::decode(smallFile(coast + none, none));
    ASSERT_TRUE(outlines);
    EXPECT_GT(outlines->coasts()[0].reach, std::numbers::pi);
}

TEST(Land, APoleHasNoMeridianOfItsOwn) {
    EXPECT_FALSE(worldOutlines().isLand({0, 0, 1}));
    EXPECT_TRUE(worldOutlines().isLand({0, 0, -1}));
}

struct KnownPlace {
    const char* name;
    Position position;
    bool isLand;
};

/// For the names of failures; its bytes hold some that nobody has written.
std::ostream& operator<<(std::ostream& stream, const KnownPlace& place) {
    return stream << place.name;
}

class LandTest : public testing::TestWithParam<KnownPlace> {};

TEST_P(LandTest, IsKnown) {
    const KnownPlace& place = GetParam();
    EXPECT_EQ(worldOutlines().isLand(directionOf(place.position)), place.isLand) << place.name;
}

INSTANTIATE_TEST_SUITE_P(
    Places, LandTest,
    testing::Values(KnownPlace{"Brussels", {50.85, 4.35}, true},
                    KnownPlace{"the north pole", {90, 0}, false},
                    KnownPlace{"the south pole", {-90, 0}, true},
                    KnownPlace{"the south pole on another meridian", {-90, 123}, true},
                    KnownPlace{"close to the south pole", {-89.9995, 77}, true},
                    KnownPlace{"Antarctica on the date line", {-85, 180}, true},
                    KnownPlace{"Siberia on the date line", {67, 180}, true},
                    KnownPlace{"the Pacific on the date line", {0, 180}, false},
                    KnownPlace{"the Caspian Sea", {42, 51}, false},
                    KnownPlace{"the middle of the Atlantic", {30, -40}, false},
                    KnownPlace{"the middle of Australia", {-25, 135}, true},
                    KnownPlace{"off Africa", {0, 0}, false},
                    KnownPlace{"Greenland", {75, -40}, true}));

} // namespace

} // namespace orbisgrid
