#include "aprs/compressed.h"
#include "tests/proof/random_numbers.h"
#include "tests/support/child.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <fstream>
#include <regex>
#include <sstream>
#include <vector>

namespace orbisgrid {

namespace {

/// A file that is gone with this object.
class PacketFile {
public:
    explicit PacketFile(const std::string& content)
        : m_path(testing::TempDir() + "orbisgrid-packets-" +
                 std::to_string(::testing::UnitTest::GetInstance()->random_seed()) + "-" +
                 std::to_string(reinterpret_cast<std::uintptr_t>(this))) {
        std::ofstream(m_path) << content;
    }

    PacketFile(const PacketFile&) = delete;
    PacketFile& operator=(const PacketFile&) = delete;

    ~PacketFile() { std::remove(m_path.c_str()); }

    const std::string& path() const { return m_path; }

private:
    std::string m_path;
};

/// "N 50 56.2835, E 004 03.1165"
Position positionOf(const std::smatch& match) {
    const double latitude = std::stod(match[2]) + std::stod(match[3]) / 60;
    const double longitude = std::stod(match[5]) + std::stod(match[6]) / 60;
    return {match[1] == "S" ? -latitude : latitude, match[4] == "W" ? -longitude : longitude};
}

/// What the decoder says of each packet: "House" and a position.
struct Decoded {
    int houses = 0;
    std::vector<Position> positions;
};

Decoded decoded(const std::string& output) {
    static const std::regex position(R"(([NS]) (\d+) (\d+\.\d+), ([EW]) (\d+) (\d+\.\d+))");
    Decoded result;
    std::istringstream lines(output);
    std::string line;
    while (std::getline(lines, line)) {
        std::smatch match;
        if (line.find("Position, House") != std::string::npos)
            ++result.houses;
        else if (std::regex_search(line, match, position))
            result.positions.push_back(positionOf(match));
    }
    return result;
}

/// One step of the latitude's value, which is kept as single, in degrees; at least one unit.
double latitudeStep(double latitude) {
    const auto Y = static_cast<float>((90 - latitude) * 380926);
    return std::fmax(1, std::nextafter(Y, 1e9F) - Y) / 380926;
}

TEST(AprsDecoder, ReadsAThousandPositionsAsTheyWereMeant) {
    test::RandomNumbers random(1998);
    std::vector<Position> meant;
    std::string packets;
    for (int i = 0; i < 1000; ++i) {
        meant.push_back({random.between(-90, 90), random.between(-180, 180)});
        packets += "N0CALL>APRS:" + toUtf8(compressedText(meant.back())) + "\n";
    }
    const PacketFile file(packets);
    const test::ShellResult run = test::shell("decode_aprs <'" + file.path() + "' 2>&1");
    ASSERT_EQ(run.status, 0) << "decode_aprs comes with the package direwolf\n" << run.output;
    const Decoded read = decoded(run.output);
    EXPECT_EQ(read.houses, 1000);
    ASSERT_EQ(read.positions.size(), meant.size());
    constexpr double printed = 0.00005 / 60; // half of its last digit, in degrees
    for (std::size_t i = 0; i < meant.size(); ++i) {
        EXPECT_NEAR(read.positions[i].latitude, meant[i].latitude,
                    latitudeStep(meant[i].latitude) + printed);
        EXPECT_NEAR(read.positions[i].longitude, meant[i].longitude, 1.0 / 190463 + printed);
    }
}

} // namespace

} // namespace orbisgrid
