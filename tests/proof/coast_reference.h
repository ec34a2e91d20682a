#pragma once

#include "map/outlines.h"

#include <vector>

namespace orbisgrid::test {

/// Land and sea by plane trigonometry in latitude and longitude, a strip of longitudes at a time:
/// no formula of the map's.
class CoastReference {
public:
    explicit CoastReference(const Outlines& outlines);

    /// Whether a place is land: whether an even number of coasts lies between it and the south
    /// pole, which is land.
    bool isLand(Position place) const;

private:
    struct Edge {
        double west, east;               ///< longitudes: degrees, east of west
        double westTangent, eastTangent; ///< of the latitudes
    };

    void add(Position from, Position to);

    std::vector<std::vector<Edge>> m_strips;
};

} // namespace orbisgrid::test
