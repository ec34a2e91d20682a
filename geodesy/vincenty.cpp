#include "geodesy/vincenty.h"

#include "core/angles.h"
#include "core/runtime_error.h"

#include <cmath>

namespace orbisgrid {

namespace {

// WGS-84 (NIMA TR8350.2): semi-major axis and flattening; b as it is usually written, to 0.1 mm.
constexpr double a = 6378137;
constexpr double b = 6356752.3142;
constexpr double f = 1 / 298.257223563;

constexpr double twoPi15 = 6.28318530717958; // 2 pi to 15 digits: far from every L but a whole turn
constexpr double convergence = 1e-12;
constexpr int passes = 100;

/// A reduced latitude on the auxiliary sphere.
struct ReducedLatitude {
    double sine, cosine;
};

/// Both ends of the geodesic on the auxiliary sphere.
struct Ends {
    ReducedLatitude U1, U2;
    double L; ///< difference of longitudes, radians
};

/// Both latitudes side by side: the tangent of one need not wait for the other.
Ends endsOf(Position from, Position to) {
    const double tangent1 = std::tan(Deg2Rad(from.latitude));
    const double tangent2 = std::tan(Deg2Rad(to.latitude));
    const double U1 = std::atan((1 - f) * tangent1);
    const double U2 = std::atan((1 - f) * tangent2);
    return {{std::sin(U1), std::cos(U1)},
            {std::sin(U2), std::cos(U2)},
            Deg2Rad(to.longitude - from.longitude)};
}

/// The arc between both points on the auxiliary sphere, for one value of lambda.
struct Arc {
    double sinSigma, cosSigma, sigma;
    double cosSqAlpha, cos2SigmaM;
    double nextLambda;
};

double sineOfArc(const Ends& ends, double lambda) {
    const ReducedLatitude &U1 = ends.U1, &U2 = ends.U2;
    const double east = U2.cosine * std::sin(lambda);
    const double north = U1.cosine * U2.sine - U1.sine * U2.cosine * std::cos(lambda);
    return std::sqrt(east * east + north * north);
}

Arc arcAt(const Ends& ends, double lambda, double sinSigma) {
    const auto& [U1, U2, L] = ends;
    const double cosSigma = U1.sine * U2.sine + U1.cosine * U2.cosine * std::cos(lambda);
    const double sigma = Atan2(cosSigma, sinSigma); // the direction of (cosSigma, sinSigma)
    const double sinAlpha = U1.cosine * U2.cosine * std::sin(lambda) / sinSigma;
    const double cosSqAlpha = 1 - sinAlpha * sinAlpha;
    double cos2SigmaM{};
    if (cosSqAlpha != 0) // 0: a line along the equator
        cos2SigmaM = cosSigma - 2 * U1.sine * U2.sine / cosSqAlpha;
    const double C = f / 16 * cosSqAlpha * (4 + f * (4 - 3 * cosSqAlpha));
    const double cos2 = cos2SigmaM * cos2SigmaM;
    const double nextLambda =
        L + (1 - C) * f * sinAlpha *
                (sigma + C * sinSigma * (cos2SigmaM + C * cosSigma * (-1 + 2 * cos2)));
    return {sinSigma, cosSigma, sigma, cosSqAlpha, cos2SigmaM, nextLambda};
}

double lengthOf(const Arc& arc) {
    const double uSq = arc.cosSqAlpha * (a * a - b * b) / (b * b);
    const double A = 1 + uSq / 16384 * (4096 + uSq * (-768 + uSq * (320 - 175 * uSq)));
    const double B = uSq / 1024 * (256 + uSq * (-128 + uSq * (74 - 47 * uSq)));
    const double cos2 = arc.cos2SigmaM * arc.cos2SigmaM;
    const double deltaSigma =
        B * arc.sinSigma *
        (arc.cos2SigmaM +
         B / 4 *
             (arc.cosSigma * (-1 + 2 * cos2) -
              B / 6 * arc.cos2SigmaM * (-3 + 4 * arc.sinSigma * arc.sinSigma) * (-3 + 4 * cos2)));
    return b * A * (arc.sigma - deltaSigma);
}

double roundedToMillimetres(double metres) {
    return std::nearbyint(metres * 1000) / 1000; // the default rounding mode: halves to even
}

} // namespace

VincentyDistance distVincenty(Position from, Position to) {
    const Ends ends = endsOf(from, to);
    double lambda = ends.L;
    double lambdaP = twoPi15;
    int counter = passes;
    Arc arc{}; // of a whole turn, where no pass is made, it keeps its zeros
    while (std::fabs(lambda - lambdaP) > convergence && counter >= 1) {
        --counter;
        const double sinSigma = sineOfArc(ends, lambda);
        if (sinSigma == 0)
            return {};
        arc = arcAt(ends, lambda, sinSigma);
        lambdaP = lambda;
        lambda = arc.nextLambda;
    }
    if (counter == 0)
        return {0, true};
    const double metres = roundedToMillimetres(lengthOf(arc));
    if (!std::isfinite(metres) || !std::isfinite(lambda))
        throw RuntimeError(RuntimeError::overflow);
    return {metres, false};
}

} // namespace orbisgrid
