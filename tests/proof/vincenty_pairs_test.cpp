#include "geodesy/vincenty.h"
#include "tests/proof/random_numbers.h"

#include <GeographicLib/Geodesic.hpp>
#include <gtest/gtest.h>

#include <cmath>
#include <iostream>

namespace orbisgrid {

namespace {

struct Pair {
    double lat1, lon1, lat2, lon2;
};

/// One pair in ten lies within two degrees of its antipode, where the method has its limit.
Pair randomPair(test::RandomNumbers& random, int number) {
    Pair pair{random.between(-90, 90), random.between(-180, 180), random.between(-90, 90),
              random.between(-180, 180)};
    if (number % 10 == 0) {
        pair.lat2 = std::fmax(-90, std::fmin(90, random.between(-2, 2) - pair.lat1));
        pair.lon2 = pair.lon1 + 180 + random.between(-2, 2);
    }
    return pair;
}

TEST(VincentyPairs, AgreeWithGeographicLibToAMillimetre) {
    test::RandomNumbers random(1975);
    const auto& ellipsoid = GeographicLib::Geodesic::WGS84();
    double mostMetres = 0;
    double sumMetres = 0;
    double sumOfSquares = 0;
    double leastArcAtLimit = 180;
    int limits = 0;
    for (int i = 0; i < 100'000; ++i) {
        const Pair pair = randomPair(random, i);
        const VincentyDistance distance = distVincenty(pair.lat1, pair.lon1, pair.lat2, pair.lon2);
        double metres = 0;
        const double arc =
            ellipsoid.Inverse(pair.lat1, pair.lon1, pair.lat2, pair.lon2, metres); // degrees
        if (distance.iterationLimitReached) {
            ++limits;
            EXPECT_EQ(distance.metres, 0);
            leastArcAtLimit = std::fmin(leastArcAtLimit, arc);
        } else {
            mostMetres = std::fmax(mostMetres, std::fabs(distance.metres - metres));
            sumMetres += distance.metres - metres;
            sumOfSquares += (distance.metres - metres) * (distance.metres - metres);
        }
    }
    std::cout << "at most " << mostMetres * 1000 << " mm apart, iteration limit reached by "
              << limits << " pairs, all at least " << leastArcAtLimit << " degrees apart\n";
    EXPECT_LE(mostMetres, 0.001);
    EXPECT_GT(mostMetres, 0.0005) << "half a millimetre is the rounding alone";
    // Over so many pairs each term of the series shows, down to some micrometres: in the mean
    // (which is mostly the 0.05 mm that b is rounded by) or in the root of the mean square (which
    // is mostly the rounding to millimetres).
    const double mean = sumMetres / 100'000;
    const double root = std::sqrt(sumOfSquares / 100'000);
    std::cout << mean * 1e9 << " nm in the mean, root of the mean square " << root * 1e9 << " nm\n";
    EXPECT_NEAR(mean, -38.24e-6, 0.03e-6);
    EXPECT_NEAR(root, 291.427e-6, 0.03e-6);
    EXPECT_EQ(limits, 446);
    EXPECT_GT(leastArcAtLimit, 179) << "nearly antipodal";
}

} // namespace

} // namespace orbisgrid
