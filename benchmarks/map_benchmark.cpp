#include "benchmarks/cases.h"
#include "map/path_map.h"
#include "map/svg.h"
#include "tests/support/world_outlines.h"

#include <cmath>
#include <numbers>

namespace orbisgrid::bench {

namespace {

/// The published formula, as it is found in every textbook.
PlanePoint plainProjection(Position centre, Position place) {
    constexpr double rad = std::numbers::pi / 180;
    const double sin1 = std::sin(centre.latitude * rad), cos1 = std::cos(centre.latitude * rad);
    const double phi = place.latitude * rad;
    const double lambda = (place.longitude - centre.longitude) * rad;
    const double cosC = sin1 * std::sin(phi) + cos1 * std::cos(phi) * std::cos(lambda);
    const double c = std::acos(cosC);
    const double k = earthRadius * c / std::sin(c);
    return {k * std::cos(phi) * std::sin(lambda),
            k * (cos1 * std::sin(phi) - sin1 * std::cos(phi) * std::cos(lambda))};
}

constexpr Position home{50.9375, 4.041667};

const RegisterCheck agrees("projection", [](const Case& one, const Case&) {
    const PlanePoint program = Azimuthal(home).project(one.position);
    const PlanePoint floor = plainProjection(home, one.position);
    return std::hypot(program.x - floor.x, program.y - floor.y) < 1e-6;
});

void Projection(benchmark::State& state) {
    const Azimuthal projection(home);
    overCases(state,
              [&](const Case& one, std::size_t) { return projection.project(one.position); });
}

void ProjectionFloor(benchmark::State& state) {
    overCases(state,
              [](const Case& one, std::size_t) { return plainProjection(home, one.position); });
}

BENCHMARK(Projection);
BENCHMARK(ProjectionFloor);
const RegisterGoal projectionGoal("Projection", "ProjectionFloor", 1.3);

PathMapOptions worldOptions() {
    PathMapOptions options;
    options.view.centre = home;
    options.home = u"JO20AW";
    options.targets = {{{42.02083, -71.95834}, u"FN42AA"}};
    options.moment = parsedMoment("2026-06-21T12:00:00Z");
    options.outlines = &test::worldOutlines();
    return options;
}

/// Values only; at most 6 ms.
void WorldPicture(benchmark::State& state) {
    const PathMapOptions options = worldOptions();
    for (auto _ : state)
        benchmark::DoNotOptimize(pathMap(options));
}

void WorldPictureAsSvg(benchmark::State& state) {
    const Picture picture = pathMap(worldOptions());
    for (auto _ : state)
        benchmark::DoNotOptimize(svgText(picture, {}));
}

void OutlinesDecoded(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(Outlines::decode(test::worldOutlineBytes()));
}

BENCHMARK(WorldPicture)->Unit(benchmark::kMillisecond);
BENCHMARK(WorldPictureAsSvg)->Unit(benchmark::kMillisecond);
BENCHMARK(OutlinesDecoded)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace orbisgrid::bench
