#include "tests/proof/land_comparison.h"

#include "tests/proof/coast_reference.h"
#include "tests/proof/random_numbers.h"
#include "tests/support/picture_probe.h"
#include "tests/support/world_outlines.h"

#include <cmath>
#include <numbers>

namespace orbisgrid::test {

namespace {

constexpr int centres = 300;
constexpr int placesOfEach = 2'000;

/// Centres of every kind: poles, antipodes on land, the date line, and anywhere.
Position centreFor(RandomNumbers& random, int number) {
    switch (number % 10) {
    case 0:
        return {number % 20 == 0 ? 90.0 : -90.0, random.between(-180, 180)};
    case 1: // New Zealand
        return {random.between(-46, -36), random.between(168, 178)};
    case 2:
        return {random.between(-80, 80), 180};
    case 3: // Hawaii
        return {random.between(18, 23), random.between(-161, -154)};
    default:
        return {std::asin(random.between(-1, 1)) * 180 / std::numbers::pi,
                random.between(-180, 180)};
    }
}

/// The coasts of the file in a picture, made when a point is looked for.
class TrueCoasts {
public:
    explicit TrueCoasts(const MapFrame& frame)
        : m_frame(frame) {}

    /// Picture units from a point to the nearest coast.
    double distanceTo(Picture::Point point) {
        if (m_edges.empty())
            makeEdges();
        double least = 1e9;
        for (const auto& [from, to] : m_edges)
            least = std::fmin(least, distanceToEdge(point, from, to));
        return least;
    }

private:
    /// In parts, as an edge next to the antipode is no straight line.
    void makeEdges() {
        for (const Outlines::Line& coast : worldOutlines().coasts()) {
            const auto places = worldOutlines().pointsOf(coast);
            for (std::size_t i = 0; i < places.size(); ++i)
                addEdge(places[i], places[(i + 1) % places.size()]);
        }
    }

    void addEdge(const Direction& from, const Direction& to) {
        const Picture::Point start = m_frame.pointOf(positionOf(from));
        const Picture::Point end = m_frame.pointOf(positionOf(to));
        const double parts = std::fmin(20, std::ceil(distanceBetween(start, end)));
        Picture::Point before = start;
        for (double part = 1; part <= parts; ++part) {
            const Direction place = combined(from, 1 - part / parts, to, part / parts);
            const Picture::Point point = m_frame.pointOf(positionOf(place));
            m_edges.emplace_back(before, point);
            before = point;
        }
    }

    const MapFrame& m_frame;
    std::vector<std::pair<Picture::Point, Picture::Point>> m_edges;
};

} // namespace

LandComparison compareLand(const std::function<ShownLand(const PathMapOptions&)>& shown) {
    const CoastReference reference(worldOutlines());
    RandomNumbers random(1999);
    LandComparison result;
    for (int number = 0; number < centres && result.wrong < 10; ++number) {
        PathMapOptions options;
        options.view.centre = centreFor(random, number);
        if (number % 3 == 2)
            options.view.radiusKilometres = 100 * std::pow(200, random.between(0, 1));
        options.outlines = &worldOutlines();
        const MapFrame frame(options.view);
        const ShownLand isShown = shown(options);
        TrueCoasts coasts(frame);
        for (int i = 0; i < placesOfEach; ++i) {
            const double azimuth = random.between(-std::numbers::pi, std::numbers::pi);
            // Not in the rim's own pixels, of which the middle may be outside.
            const double radius = (frame.rim() - 1) * std::sqrt(random.between(0, 1));
            const Picture::Point point{500 + radius * std::sin(azimuth),
                                       500 - radius * std::cos(azimuth)};
            const bool isLand = reference.isLand(*frame.placeAt(point));
            result.land += isLand ? 1 : 0;
            ++result.looked;
            if (isShown(point) == isLand)
                continue;
            ++result.differing;
            result.wrong += coasts.distanceTo(point) > 2 ? 1 : 0;
        }
    }
    return result;
}

} // namespace orbisgrid::test
