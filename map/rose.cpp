#include "map/rose.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace orbisgrid {

namespace {

constexpr double radian = std::numbers::pi / 180; // of a degree
constexpr double shortTick = 4, longTick = 8;
constexpr double behindTick = 2;

Picture::Point pointAt(double degrees, double radius) {
    return {MapFrame::middle.x + radius * std::sin(degrees * radian),
            MapFrame::middle.y - radius * std::cos(degrees * radian)};
}

/// Beyond the rim, with its box behind the tick whatever side of the rim it is on.
Picture::Label bearingLabel(const MapFrame& frame, Role role, int degrees, const Text& text) {
    const double size = frame.textSize();
    const Picture::Label atMiddle = centredLabel(role, MapFrame::middle, size, text);
    const LabelBox box = boxOf(atMiddle);
    // From the middle of the box to its edge, along the bearing.
    const double sine = std::fabs(std::sin(degrees * radian));
    const double cosine = std::fabs(std::cos(degrees * radian));
    const double inner = sine * (box.right - box.left) / 2 + cosine * (box.bottom - box.top) / 2;
    return centredLabel(role, pointAt(degrees, frame.rim() + longTick + behindTick + inner), size,
                        text);
}

Text wholeText(double value) {
    return fromUtf8(std::to_string(std::lround(value)));
}

} // namespace

std::vector<double> ringKilometres(double radiusKilometres) {
    constexpr std::size_t fewest = 3, most = 6;
    constexpr std::array steps{5000.0, 2000.0, 1000.0, 500.0, 200.0, 100.0, 50.0, 20.0};
    const double outermost = radiusKilometres * 0.99;
    // The widest step that gives three; where it gives seven, the last one would lie within an
    // eighth of the rim.
    const double step = *std::find_if(steps.begin(), steps.end() - 1, [&](double each) {
        return static_cast<double>(fewest) * each <= outermost;
    });
    std::vector<double> rings;
    while (rings.size() < most && static_cast<double>(rings.size() + 1) * step <= outermost)
        rings.push_back(static_cast<double>(rings.size() + 1) * step);
    return rings;
}

Picture::Lines ticksOf(const MapFrame& frame) {
    Picture::Lines ticks{Role::tick, {}};
    for (int degrees = 0; degrees < 360; degrees += 10) {
        const double length = degrees % 30 == 0 ? longTick : shortTick;
        ticks.lines.push_back(
            {pointAt(degrees, frame.rim()), pointAt(degrees, frame.rim() + length)});
    }
    return ticks;
}

std::vector<Picture::Label> cardinalsOf(const MapFrame& frame) {
    return {bearingLabel(frame, Role::cardinal, 0, u"N"),
            bearingLabel(frame, Role::cardinal, 90, u"E"),
            bearingLabel(frame, Role::cardinal, 180, u"S"),
            bearingLabel(frame, Role::cardinal, 270, u"W")};
}

std::vector<Picture::Label> bearingsOf(const MapFrame& frame) {
    std::vector<Picture::Label> labels;
    for (const int degrees : {30, 60, 120, 150, 210, 240, 300, 330})
        labels.push_back(
            bearingLabel(frame, Role::bearingLabel, degrees, wholeText(degrees) + u"°"));
    return labels;
}

std::vector<Picture::Label> ringLabels(const MapFrame& frame, double kilometres) {
    constexpr std::array<double, 8> bearings{135, 225, 45, 315, 165, 195, 15, 345};
    const double radius = kilometres / frame.kilometresPerUnit();
    std::vector<Picture::Label> labels;
    labels.reserve(bearings.size());
    for (const double degrees : bearings)
        labels.push_back(centredLabel(Role::ringLabel, pointAt(degrees, radius),
                                      0.85 * frame.textSize(), wholeText(kilometres) + u" km"));
    return labels;
}

} // namespace orbisgrid
