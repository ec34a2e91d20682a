#include "fuzz/oracle.h"
#include "map/land.h"

#include <algorithm>
#include <cmath>

namespace orbisgrid::fuzz {

namespace {

std::string withChecksum(std::string bytes) {
    const std::uint32_t checksum = checksumOf(bytes);
    for (unsigned shift = 0; shift < 32; shift += 8)
        bytes += static_cast<char>(checksum >> shift);
    return bytes;
}

void compareLines(const Outlines& outlines, const std::vector<Outlines::Line>& lines,
                  std::size_t fewest) {
    for (const Outlines::Line& line : lines) {
        const auto points = outlines.pointsOf(line);
        require(points.size() >= fewest, "points of a line");
        require(outlines.detailsOf(line).size() == points.size(), "details of a line");
        for (const Direction& point : points) {
            require(std::fabs(dot(point, point) - 1) < 1e-12, "length of a direction");
            require(line.reach > 3.2 ||
                        std::acos(std::min(1.0, dot(point, line.middle))) <= line.reach,
                    "cap of a line");
        }
        for (const std::uint8_t detail : outlines.detailsOf(line))
            require(detail <= 3, "detail");
    }
}

void comparePicture(const MapFrame& frame, const std::vector<Picture::Polyline>& lines) {
    for (const Picture::Polyline& line : lines) {
        require(!line.empty(), "points of a polyline");
        for (const Picture::Point point : line)
            require(std::hypot(point.x - 500, point.y - 500) <= frame.rim() + 1e-6,
                    "within the rim");
    }
}

/// Whatever the lines are, pictures of them are whole.
void comparePictures(const Outlines& outlines) {
    const MapView views[] = {{{0, 0}}, {{-90, 0}, 9000}, {{50, 4}, 300}};
    for (const MapView& view : views) {
        const MapFrame frame(view);
        comparePicture(frame, landOf(frame, outlines).rings);
        comparePicture(frame, bordersOf(frame, outlines).lines);
    }
}

void compare(const std::string& bytes) {
    const auto outlines = Outlines::decode(bytes);
    if (!outlines)
        return;
    compareLines(*outlines, outlines->coasts(), 3);
    compareLines(*outlines, outlines->borders(), 2);
    comparePictures(*outlines);
    std::string damaged = bytes;
    damaged.back() = static_cast<char>(damaged.back() ^ 1);
    require(!Outlines::decode(damaged), "a damaged checksum");
}

} // namespace

} // namespace orbisgrid::fuzz

/// The input is a file, and what lies between the beginning and the checksum of another one.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace orbisgrid;
    const std::string bytes(fuzz::bytesOf(data, size));
    fuzz::compare(bytes);
    fuzz::compare(fuzz::withChecksum("ORBIMAP1" + bytes));
    return 0;
}
