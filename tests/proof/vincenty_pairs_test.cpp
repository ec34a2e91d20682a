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
        }
    }
    std::cout << "at most " << mostMetres * 1000 << " mm apart, iteration limit reached by "
              << limits << " pairs, all at least " << leastArcAtLimit << " degrees apart\n";
    EXPECT_LE(mostMetres, 0.001);
    // Half a millimetre is the rounding; the mean, where that is gone, feels every term of the
    // series (the rest of it is the 0.05 mm that b is rounded by).
    EXPECT_GT(mostMetres, 0.0005);
    std::cout << sumMetres / 100'000 * 1e6 << " micrometres in the mean\n";
    EXPECT_NEAR(sumMetres / 100'000, -0.0000382, 0.000001);
    EXPECT_EQ(limits, 446);
    EXPECT_GT(leastArcAtLimit, 179) << "nearly antipodal";
}

} // namespace

} // namespace orbisgrid
