#pragma once

#include "core/position.h"

namespace orbisgrid {

/// What distVincenty found.
struct VincentyDistance {
    double metres = 0; ///< rounded to 3 decimals, halves to even; 0 for coincident points
    bool iterationLimitReached = false; ///< metres is 0 and a message is due
};

/// Geodesic distance on the WGS-84 ellipsoid by Vincenty's inverse method (T. Vincenty, Survey
/// Review XXIII, 1975).
///
/// At most 100 passes; one that converges exactly on the hundredth still counts as a failure, as
/// the counter alone is looked at. Nearly antipodal points end that way.
/// Throws RuntimeError 6 where the arithmetic fails (an argument that is no number).
[[nodiscard]] VincentyDistance distVincenty(Position from, Position to);

/// The same of bare numbers, in degrees, north and east positive.
[[nodiscard]] inline VincentyDistance distVincenty(double lat1, double lon1, double lat2,
                                                   double lon2) {
    return distVincenty(Position{lat1, lon1}, Position{lat2, lon2});
}

} // namespace orbisgrid
