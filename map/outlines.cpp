#include "map/outlines.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace orbisgrid {

namespace {

constexpr std::string_view beginning = "ORBIMAP1";
constexpr std::size_t checksumLength = 4;
constexpr std::int64_t unitsInDegree = 400;
constexpr std::int64_t mostLatitude = 90 * unitsInDegree;
constexpr std::int64_t halfTurn = 180 * unitsInDegree;

std::uint8_t byteAt(std::string_view bytes, std::size_t index) {
    return static_cast<std::uint8_t>(bytes[index]);
}

std::uint32_t storedChecksum(std::string_view bytes) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < checksumLength; ++i)
        value |= std::uint32_t{byteAt(bytes, bytes.size() - checksumLength + i)} << (8 * i);
    return value;
}

constexpr std::array<std::uint32_t, 256> checksumTable() {
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t i = 0; i < table.size(); ++i) {
        std::uint32_t value = i;
        for (int bit = 0; bit < 8; ++bit)
            value = (value & 1U) != 0 ? 0xEDB88320U ^ (value >> 1U) : value >> 1U;
        table.at(i) = value;
    }
    return table;
}

} // namespace

std::uint32_t checksumOf(std::string_view bytes) {
    static constexpr std::array<std::uint32_t, 256> table = checksumTable();
    std::uint32_t value = 0xFFFFFFFFU;
    for (const char byte : bytes)
        value = table[(value ^ static_cast<std::uint8_t>(byte)) & 0xFFU] ^ (value >> 8U);
    return ~value;
}

/// Reads from the front of the bytes. Each step fails at their end.
class OutlinesReader {
public:
    explicit OutlinesReader(std::string_view body)
        : m_rest(body) {
        // As many as there can be, at two bytes a point: room that nothing is written to takes no
        // memory, and a list that grows takes twice its size while it moves.
        m_outlines.m_points.reserve(m_rest.size() / 2);
    }

    std::optional<Outlines> read() {
        const bool isWhole = readLines(m_outlines.m_coasts, 3) &&
                             readLines(m_outlines.m_borders, 2) && readDetails();
        return isWhole ? std::optional(std::move(m_outlines)) : std::nullopt;
    }

private:
    std::optional<std::uint32_t> readNumber() {
        std::uint32_t value = 0;
        for (unsigned shift = 0; shift < 28 && !m_rest.empty(); shift += 7) {
            const std::uint8_t byte = byteAt(m_rest, 0);
            m_rest.remove_prefix(1);
            value |= (byte & 0x7FU) << shift;
            if ((byte & 0x80U) == 0)
                return value;
        }
        return std::nullopt;
    }

    std::optional<std::int64_t> readStep() {
        const auto number = readNumber();
        if (!number)
            return std::nullopt;
        const std::int64_t half = *number / 2;
        return *number % 2 == 0 ? half : -1 - half;
    }

    bool readPoint(std::int64_t& longitude, std::int64_t& latitude) {
        const auto east = readStep();
        const auto north = east ? readStep() : std::nullopt;
        if (!north)
            return false;
        longitude = (longitude + *east + 3 * halfTurn) % (2 * halfTurn) - halfTurn;
        latitude += *north;
        if (*east < -halfTurn || *east > halfTurn || std::abs(latitude) > mostLatitude)
            return false;
        const auto degrees = [](std::int64_t units) {
            return static_cast<double>(units) / static_cast<double>(unitsInDegree);
        };
        m_outlines.m_points.push_back(directionOf({degrees(latitude), degrees(longitude)}));
        return true;
    }

    bool readLine(std::vector<Outlines::Line>& lines, std::size_t leastPoints) {
        const auto count = readNumber();
        if (!count || *count < leastPoints)
            return false;
        Outlines::Line line{m_outlines.m_points.size(), *count, {}, {}};
        std::int64_t longitude = 0, latitude = 0;
        for (std::size_t i = 0; i < line.count; ++i) {
            if (!readPoint(longitude, latitude))
                return false;
        }
        findCap(line);
        lines.push_back(line);
        return true;
    }

    void findCap(Outlines::Line& line) const {
        constexpr double unknown = std::numeric_limits<double>::infinity();
        const auto points = m_outlines.pointsOf(line);
        Direction sum;
        for (const Direction& point : points)
            sum = combined(sum, 1, point, 1);
        // Of opposite places a sum is left that is rounding alone: any middle does then.
        line.middle = dot(sum, sum) > 1e-12 ? normalised(sum) : points.front();
        double least = 1;
        for (const Direction& point : points)
            least = std::min(least, dot(line.middle, point));
        // A cap below a hemisphere holds each edge whose ends it holds; the margin is the arc
        // cosine's error.
        line.reach = least > 0 ? std::acos(least) + 1e-6 : unknown;
    }

    bool readLines(std::vector<Outlines::Line>& lines, std::size_t leastPoints) {
        const auto count = readNumber();
        if (!count)
            return false;
        for (std::uint32_t i = 0; i < *count; ++i) {
            if (!readLine(lines, leastPoints))
                return false;
        }
        return true;
    }

    /// They take all that is left.
    bool readDetails() {
        const std::size_t count = m_outlines.m_points.size();
        if (m_rest.size() != (count + 3) / 4)
            return false;
        m_outlines.m_details.reserve(count);
        for (std::size_t i = 0; i < count; ++i) {
            const unsigned detail = byteAt(m_rest, i / 4) >> (2 * (i % 4));
            m_outlines.m_details.push_back(static_cast<std::uint8_t>(detail & 3U));
        }
        return true;
    }

    std::string_view m_rest;
    Outlines m_outlines;
};

std::optional<Outlines> Outlines::decode(std::string_view bytes) {
    if (!bytes.starts_with(beginning) || bytes.size() < beginning.size() + checksumLength)
        return std::nullopt;
    const std::string_view checked = bytes.substr(0, bytes.size() - checksumLength);
    if (checksumOf(checked) != storedChecksum(bytes))
        return std::nullopt;
    return OutlinesReader(checked.substr(beginning.size())).read();
}

bool Outlines::isLand(const Direction& place) const {
    const double outwards = std::hypot(place.x, place.y);
    // At a pole any meridian does.
    const bool isPole = outwards == 0;
    const double cosine = isPole ? 1 : place.x / outwards;
    const double sine = isPole ? 0 : place.y / outwards;
    const auto eastOf = [&](const Direction& point) { return point.y * cosine - point.x * sine; };
    bool isInside = false;
    for (const Line& coast : m_coasts) {
        const auto points = pointsOf(coast);
        const Direction* from = &points.back();
        double fromEast = eastOf(*from);
        for (const Direction& to : points) {
            const double toEast = eastOf(to);
            if ((fromEast > 0) != (toEast > 0)) {
                // Where the edge meets the plane of the meridian; its length does not matter.
                const Direction met = combined(*from, std::fabs(toEast), to, std::fabs(fromEast));
                const double along = met.x * cosine + met.y * sine;
                isInside ^= along > 0 && met.z * outwards > along * place.z;
            }
            from = &to;
            fromEast = toEast;
        }
    }
    return isInside;
}

} // namespace orbisgrid
