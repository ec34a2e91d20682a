#include "geodesy/great_circle.h"
#include "geodesy/locator_check.h"
#include "tests/proof/locator_reference.h"
#include "tests/proof/random_numbers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <iostream>
#include <numbers>

namespace orbisgrid {

namespace {

using test::RandomNumbers;
using test::sixCells;

struct Reference {
    double km = 0;
    double azimuth = 0; ///< degrees, 0 up to 360
};

/// Distance and azimuth in double precision, by the half-angle formula that is exact at every
/// distance, on the same sphere.
Reference doubleGreatCircle(Position home, Position target) {
    constexpr double rad = std::numbers::pi / 180;
    const double phi1 = home.latitude * rad;
    const double phi2 = target.latitude * rad;
    const double east = (target.longitude - home.longitude) * rad;
    const double half = std::pow(std::sin((phi2 - phi1) / 2), 2) +
                        std::cos(phi1) * std::cos(phi2) * std::pow(std::sin(east / 2), 2);
    const double azimuth = std::atan2(std::sin(east) * std::cos(phi2),
                                      std::cos(phi1) * std::sin(phi2) -
                                          std::sin(phi1) * std::cos(phi2) * std::cos(east));
    return {6367 * 2 * std::atan2(std::sqrt(half), std::sqrt(std::fmax(0, 1 - half))),
            azimuth < 0 ? azimuth / rad + 360 : azimuth / rad};
}

double angleBetween(double one, double other) {
    const double difference = std::fabs(one - other);
    return std::fmin(difference, 360 - difference);
}

/// A distance band and the worst that single precision does in it.
struct Band {
    double below;         ///< km
    double pinnedKm;      ///< largest deviation of the distance
    double pinnedDegrees; ///< largest deviation of the azimuth
    int pairs = 0;
    double mostKm = 0;
    double mostDegrees = 0;

    void add(double km, double degrees) {
        ++pairs;
        mostKm = std::fmax(mostKm, km);
        mostDegrees = std::fmax(mostDegrees, degrees);
    }
};

std::array<Band, 8> bands() {
    return {{{5, 2.582, 90.96},
             {20, 0.8208, 23.45},
             {100, 0.1639, 8.878},
             {1000, 0.03696, 3.405},
             {10000, 0.003547, 0.4158},
             {19900, 0.03915, 2.848},
             {19980, 0.1542, 6.848},
             {1e9, 2.583, 180}}};
}

/// A locator by its cells, which the world's ends hold in: east goes on in the west.
struct Cells {
    int longitude = 0;
    int latitude = 0;

    Position point() const {
        return pointOf(*checkedHome(test::locatorOfSix(longitude, latitude)));
    }
};

Cells randomCells(RandomNumbers& random) {
    return {random.below(sixCells), random.below(sixCells)};
}

/// Half of the targets anywhere, the others a few subsquares away from the home or from its
/// antipode: the bands that chance alone would leave empty.
Cells randomTarget(RandomNumbers& random, Cells home, int pair) {
    if (pair % 2 == 0)
        return randomCells(random);
    const bool isNear = pair % 4 == 1;
    const int reach = pair % 8 < 4 ? 2 : 24;
    const int east = (isNear ? 0 : sixCells / 2) + random.below(2 * reach + 1) - reach;
    const int north = random.below(2 * reach + 1) - reach;
    const int latitude = (isNear ? home.latitude : sixCells - 1 - home.latitude) + north;
    return {(home.longitude + east + sixCells) % sixCells, std::clamp(latitude, 0, sixCells - 1)};
}

struct Totals {
    int asymmetric = 0;
    int outsideTheRose = 0; ///< azimuths that would not show as 0 to 359
    int quarters = 0;       ///< 0 km for a quarter of a circle
    int noNumber = 0;
    int samePoints = 0;
    int wrongSamePoints = 0; ///< the same point, but not 0 km and azimuth 0
};

void prove(Position home, Position target, std::array<Band, 8>& table, Totals& totals) {
    const GreatCircle there = greatCircle(home, target);
    const GreatCircle back = greatCircle(target, home);
    totals.asymmetric += there.kilometres == back.kilometres ? 0 : 1;
    totals.outsideTheRose += there.azimuth >= 0 && there.azimuth < 360 ? 0 : 1;
    totals.noNumber += std::isfinite(there.kilometres) && std::isfinite(there.azimuth) ? 0 : 1;
    const Reference exact = doubleGreatCircle(home, target);
    totals.samePoints += exact.km == 0 ? 1 : 0;
    totals.wrongSamePoints +=
        exact.km == 0 && (there.kilometres != 0 || there.azimuth != 0) ? 1 : 0;
    if (exact.km == 0)
        return;
    if (there.kilometres == 0 && exact.km > 9000) {
        ++totals.quarters;
        return;
    }
    for (Band& band : table) {
        if (exact.km < band.below) {
            band.add(std::fabs(there.kilometres - exact.km),
                     angleBetween(there.azimuth, exact.azimuth));
            break;
        }
    }
}

TEST(GreatCirclePairs, TwoMillionAgainstDoublePrecision) {
    RandomNumbers random(1850);
    std::array<Band, 8> table = bands();
    Totals totals;
    for (int pair = 0; pair < 2'000'000; ++pair) {
        const Cells home = randomCells(random);
        prove(home.point(), randomTarget(random, home, pair).point(), table, totals);
    }
    EXPECT_EQ(totals.asymmetric, 0);
    EXPECT_EQ(totals.outsideTheRose, 0);
    EXPECT_EQ(totals.noNumber, 0);
    EXPECT_EQ(totals.quarters, 0);
    EXPECT_GT(totals.samePoints, 0);
    EXPECT_EQ(totals.wrongSamePoints, 0);
    for (const Band& band : table) {
        std::cout << "below " << band.below << " km: " << band.pairs << " pairs, at most "
                  << band.mostKm << " km and " << band.mostDegrees << " degrees off\n";
        EXPECT_GT(band.pairs, 1000);
        EXPECT_NEAR(band.mostKm, band.pinnedKm, 0.02 * band.pinnedKm);
        EXPECT_NEAR(band.mostDegrees, band.pinnedDegrees, 0.02 * band.pinnedDegrees);
    }
}

} // namespace

} // namespace orbisgrid
