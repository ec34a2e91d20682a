// Others on the same cases in the same run, where they are installed. Empty without them.

#include "benchmarks/cases.h"

#include <array>
#include <cmath>

#ifdef ORBISGRID_GEOGRAPHICLIB
#include "geodesy/vincenty.h"

#include <GeographicLib/Geodesic.hpp>
#endif

#ifdef ORBISGRID_HAMLIB
#include <hamlib/rig.h>
#include <hamlib/rotator.h>
#endif

namespace orbisgrid::bench {

namespace {

#ifdef ORBISGRID_GEOGRAPHICLIB

double inverse(const Case& one, const Case& partner) {
    double metres = 0;
    GeographicLib::Geodesic::WGS84().Inverse(one.position.latitude, one.position.longitude,
                                             partner.position.latitude, partner.position.longitude,
                                             metres);
    return metres;
}

const RegisterCheck inverseAgrees("GeographicLib", [](const Case& one, const Case& partner) {
    const VincentyDistance program = distVincenty(one.position, partner.position);
    return program.iterationLimitReached ||
           std::fabs(program.metres - inverse(one, partner)) < 0.001;
});

void GeographicLibInverse(benchmark::State& state) {
    overCases(state, [](const Case& one, std::size_t i) { return inverse(one, partnerOf(i)); });
}

BENCHMARK(GeographicLibInverse);

#endif

#ifdef ORBISGRID_HAMLIB

struct Point {
    double longitude = 0, latitude = 0;
};

Point hamlibDecode(const std::string& locator) {
    Point point;
    locator2longlat(&point.longitude, &point.latitude, locator.c_str());
    return point;
}

std::array<char, 16> hamlibEncode(const Case& one, int pairs) {
    std::array<char, 16> locator{};
    longlat2locator(one.position.longitude, one.position.latitude, locator.data(), pairs);
    return locator;
}

double hamlibDistance(const Case& one, const Case& partner) {
    double km = 0;
    double azimuth = 0;
    qrb(one.position.longitude, one.position.latitude, partner.position.longitude,
        partner.position.latitude, &km, &azimuth);
    return km + azimuth;
}

const RegisterCheck hamlibAgrees("Hamlib", [](const Case& one, const Case&) {
    rig_set_debug(RIG_DEBUG_NONE); // it would print each call
    const Point point = hamlibDecode(one.narrowSix);
    return hamlibEncode(one, 3).data() == one.narrowSix &&
           std::fabs(point.longitude - one.position.longitude) < 0.0834 &&
           std::fabs(point.latitude - one.position.latitude) < 0.0418;
});

void HamlibDecodeSix(benchmark::State& state) {
    overCases(state, [](const Case& one, std::size_t) { return hamlibDecode(one.narrowSix); });
}

void HamlibDecodeTen(benchmark::State& state) {
    overCases(state, [](const Case& one, std::size_t) { return hamlibDecode(one.narrowTen); });
}

void HamlibEncodeSix(benchmark::State& state) {
    overCases(state, [](const Case& one, std::size_t) { return hamlibEncode(one, 3); });
}

void HamlibEncodeTen(benchmark::State& state) {
    overCases(state, [](const Case& one, std::size_t) { return hamlibEncode(one, 5); });
}

void HamlibDistance(benchmark::State& state) {
    overCases(state,
              [](const Case& one, std::size_t i) { return hamlibDistance(one, partnerOf(i)); });
}

BENCHMARK(HamlibDecodeSix);
BENCHMARK(HamlibDecodeTen);
BENCHMARK(HamlibEncodeSix);
BENCHMARK(HamlibEncodeTen);
BENCHMARK(HamlibDistance);
const RegisterGoal decodeSix("DecodeSix", "HamlibDecodeSix", 1);
const RegisterGoal decodeTen("DecodeTen", "HamlibDecodeTen", 1);
const RegisterGoal encodeSix("EncodeSix", "HamlibEncodeSix", 1);
const RegisterGoal encodeTen("EncodeTen", "HamlibEncodeTen", 1);
const RegisterGoal distance("DistanceTexts", "HamlibDistance", 1);

#endif

} // namespace

} // namespace orbisgrid::bench
