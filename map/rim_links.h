#pragma once

#include "map/picture.h"
#include "map/rim_clip.h"

#include <cstddef>
#include <vector>

namespace orbisgrid {

/// Joins what is left of cut rings to rings again, along the rim. Around the rim inside and outside
/// take turns at each crossing, so that one arc decides all of them.
class RimLinks {
public:
    /// A part of the rim, clockwise: radians from north over east, `from` below `to`.
    struct Arc {
        double from, to;
    };

    /// `chains` start and end at the rim, all of them; they must outlive this object. `radius` is
    /// the rim's, in picture units.
    RimLinks(const std::vector<RimChain>& chains, double radius);

    /// The widest arc between two crossings; the whole rim where there is none.
    [[nodiscard]] Arc widestArc() const;

    /// The rings, with the arcs that lie inside; of a rim without a crossing all of it or nothing.
    [[nodiscard]] std::vector<Picture::Polyline> rings(bool isWidestArcInside) const;

private:
    /// Where a chain meets the rim.
    struct Crossing {
        double azimuth{};
        std::size_t chain{};
        bool isStart{};
    };

    [[nodiscard]] std::size_t widest() const;
    [[nodiscard]] Arc arcBehind(std::size_t crossing) const;
    [[nodiscard]] Picture::Polyline ringFrom(std::size_t chain, bool areEvenArcsInside,
                                             std::vector<bool>& isUsed) const;
    void appendChain(Picture::Polyline& points, std::size_t chain, bool isForward) const;
    void appendRim(Picture::Polyline& points, double from, double to) const;

    const std::vector<RimChain>& m_chains;
    double m_radius;
    std::vector<Crossing> m_crossings;         ///< by azimuth
    std::vector<std::size_t> m_starts, m_ends; ///< of each chain, in m_crossings
};

} // namespace orbisgrid
