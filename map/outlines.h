#pragma once

#include "map/direction.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace orbisgrid {

/// Kilometres that a line may go wrong where its points of detail 0, 1 and 2 are left out. Points
/// of detail 3 stand for more.
inline constexpr std::array<double, 3> detailKilometres{1.25, 2.5, 5};

/// The world's coasts and borders, decoded from orbisgrid-map.dat.
class Outlines {
public:
    /// A coast (closed, the first point is not repeated) or a border (open).
    struct Line {
        std::size_t first{}, count{}; ///< its points; coasts have 3 and more, borders 2
        Direction middle;             ///< of a cap of the sphere that holds all of it
        double reach{}; ///< the radius of that cap, radians; infinite where it is unknown
    };

    /// Reads the file's bytes (scripts/map_outlines.py describes them). Result: nothing where they
    /// are not whole: another beginning, a wrong checksum, numbers that do not fit.
    [[nodiscard]] static std::optional<Outlines> decode(std::string_view bytes);

    [[nodiscard]] const std::vector<Line>& coasts() const { return m_coasts; }

    [[nodiscard]] const std::vector<Line>& borders() const { return m_borders; }

    [[nodiscard]] std::span<const Direction> pointsOf(const Line& line) const {
        return std::span(m_points).subspan(line.first, line.count);
    }

    /// Of each point of a line the detail that it stands for: 0 to 3.
    [[nodiscard]] std::span<const std::uint8_t> detailsOf(const Line& line) const {
        return std::span(m_details).subspan(line.first, line.count);
    }

    /// Whether a place lies on land: whether the meridian from it to the north pole, which lies in
    /// the sea, crosses an odd number of coasts.
    [[nodiscard]] bool isLand(const Direction& place) const;

private:
    friend class OutlinesReader;

    std::vector<Direction> m_points;
    std::vector<std::uint8_t> m_details;
    std::vector<Line> m_coasts, m_borders;
};

/// The check at the end of the file: CRC-32 (ISO 3309).
[[nodiscard]] std::uint32_t checksumOf(std::string_view bytes);

} // namespace orbisgrid
