#include "benchmarks/cases.h"
#include "geodesy/vincenty.h"

#include <cmath>
#include <numbers>

namespace orbisgrid::bench {

namespace {

/// The published formulae with the standard library's arc tangent and no look at what may fail.
double floorVincenty(Position from, Position to) {
    const auto [lat1, lon1] = from;
    const auto [lat2, lon2] = to;
    constexpr double a = 6378137, b = 6356752.3142, f = 1 / 298.257223563;
    constexpr double rad = std::numbers::pi / 180;
    const double L = (lon2 - lon1) * rad;
    const double U1 = std::atan((1 - f) * std::tan(lat1 * rad));
    const double U2 = std::atan((1 - f) * std::tan(lat2 * rad));
    const double s1 = std::sin(U1), c1 = std::cos(U1), s2 = std::sin(U2), c2 = std::cos(U2);
    double lambda = L, before = 7, sinS = 0, cosS = 0, sigma = 0, cosSq = 0, mid = 0;
    for (int i = 0; i < 100 && std::fabs(lambda - before) > 1e-12; ++i) {
        const double sinL = std::sin(lambda), cosL = std::cos(lambda);
        sinS = std::hypot(c2 * sinL, c1 * s2 - s1 * c2 * cosL);
        cosS = s1 * s2 + c1 * c2 * cosL;
        sigma = std::atan2(sinS, cosS);
        const double sinA = c1 * c2 * sinL / sinS;
        cosSq = 1 - sinA * sinA;
        mid = cosS - 2 * s1 * s2 / cosSq;
        const double C = f / 16 * cosSq * (4 + f * (4 - 3 * cosSq));
        before = lambda;
        lambda =
            L + (1 - C) * f * sinA * (sigma + C * sinS * (mid + C * cosS * (-1 + 2 * mid * mid)));
    }
    const double u = cosSq * (a * a - b * b) / (b * b);
    const double A = 1 + u / 16384 * (4096 + u * (-768 + u * (320 - 175 * u)));
    const double B = u / 1024 * (256 + u * (-128 + u * (74 - 47 * u)));
    const double delta = B * sinS *
                         (mid + B / 4 *
                                    (cosS * (-1 + 2 * mid * mid) -
                                     B / 6 * mid * (-3 + 4 * sinS * sinS) * (-3 + 4 * mid * mid)));
    return b * A * (sigma - delta);
}

const RegisterCheck agrees("ellipsoidal distance", [](const Case& one, const Case& partner) {
    const VincentyDistance program = distVincenty(one.position, partner.position);
    return program.iterationLimitReached ||
           std::fabs(program.metres - floorVincenty(one.position, partner.position)) < 0.001;
});

void Vincenty(benchmark::State& state) {
    overCases(state, [](const Case& one, std::size_t i) {
        const Case& partner = partnerOf(i);
        return distVincenty(one.position, partner.position);
    });
}

void VincentyFloor(benchmark::State& state) {
    overCases(state, [](const Case& one, std::size_t i) {
        const Case& partner = partnerOf(i);
        return floorVincenty(one.position, partner.position);
    });
}

BENCHMARK(Vincenty);
BENCHMARK(VincentyFloor);
const RegisterGoal goal("Vincenty", "GeographicLibInverse", 0.35);

} // namespace

} // namespace orbisgrid::bench
