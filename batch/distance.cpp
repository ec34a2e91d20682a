#include "batch/distance.h"

#include "batch/box_text.h"
#include "core/maidenhead.h"
#include "core/number_text.h"
#include "geodesy/locator_check.h"
#include "geodesy/vincenty.h"
#include "records/lines.h"

#include <charconv>
#include <cmath>
#include <memory>
#include <utility>

namespace orbisgrid {

namespace {

// The columns that are always there, in their order.
enum : std::size_t {
    distanceKm,
    distanceMiles,
    azimuth,
    homeLatitude,
    homeLongitude,
    targetLatitude,
    targetLongitude,
    longDistanceKm, // where it is asked for, and the next one with it
    longAzimuth
};

constexpr std::string_view invalidLocator = "Invalid locator!";

void setNumber(std::string& value, double number) {
    value.clear();
    appendPlainText(value, number);
}

/// A coordinate that is stored as single.
void setCoordinate(std::string& value, double coordinate) {
    value.clear();
    appendPlainText(value, static_cast<float>(coordinate));
}

/// What the text of a number is worth.
double numberIn(const std::string& text) {
    double number{};
    std::from_chars(std::to_address(text.begin()), std::to_address(text.end()), number,
                    std::chars_format::fixed);
    return number;
}

} // namespace

DistanceTask::DistanceTask(DistanceOptions options)
    : m_options(std::move(options))
    , m_columns{{"distance_km"},    {"distance_miles"},  {"azimuth"},         {"home_latitude"},
                {"home_longitude"}, {"target_latitude"}, {"target_longitude"}} {
    if (m_options.isLongPath) {
        m_columns.push_back({"distance_long_path_km"});
        m_columns.push_back({"azimuth_long_path"});
    }
    m_ellipsoidColumn = m_columns.size();
    if (m_options.isEllipsoid)
        m_columns.push_back({"distance_wgs84_km"});
}

bool DistanceTask::takeHome(std::string_view locator) {
    const std::string_view typed = inItsBox(locator);
    if (typed != m_home.typed) {
        m_home.typed = typed;
        const Text text = widened(typed);
        m_home.locator = hasAcceptedLength(text) ? completedLocator(text) : Text();
        const auto checked = checkedHome(m_home.locator);
        if (checked) {
            m_home.point = pointOf(*checked);
            // The window shows Home from before it is stored as single, the Target from after.
            const Position centre = centreOfSix(upperCase(m_home.locator));
            m_home.latitude.clear();
            m_home.longitude.clear();
            appendPlainTextOfSeven(m_home.latitude, centre.latitude);
            appendPlainTextOfSeven(m_home.longitude, centre.longitude);
        } else {
            m_home.locator.clear();
        }
    }
    return !m_home.locator.empty();
}

std::optional<LocatorPath> DistanceTask::pathTo(const Question& question, TextView target) const {
    Position to;
    if (question.place) {
        to = *question.place;
    } else {
        const auto checked = hasAcceptedLength(target) ? checkedTarget(target) : std::nullopt;
        if (!checked)
            return std::nullopt;
        to = pointOf(*checked);
    }
    return LocatorPath{m_home.point, to, greatCircle(m_home.point, to)};
}

Answer DistanceTask::answer(const Question& question, Values& values) {
    const std::string_view home = question.home.empty() ? m_options.home : question.home;
    if (home.empty())
        return {"No locator of Home!", {}, {}};
    if (!takeHome(home))
        return {invalidLocator, {}, home};
    if (!question.place && withoutBlanks(question.target).empty())
        return {"No locator!", {}, {}};
    const Text target = completedLocator(widened(inItsBox(question.target)));
    const auto path = pathTo(question, target);
    if (!path)
        return {invalidLocator, {}, question.target};

    const double kilometres = shownKilometres(path->circle.kilometres);
    setNumber(values[distanceKm], kilometres);
    setNumber(values[distanceMiles], shownMiles(kilometres));
    const bool isSame = !question.place && m_home.locator == target;
    values[azimuth].clear(); // the same locator lies in no direction
    if (!isSame)
        setNumber(values[azimuth], shownAzimuth(path->circle.azimuth));
    values[homeLatitude] = m_home.latitude;
    values[homeLongitude] = m_home.longitude;
    setCoordinate(values[targetLatitude], path->target.latitude);
    setCoordinate(values[targetLongitude], path->target.longitude);
    if (m_options.isLongPath)
        putLongPath(*path, isSame, values);
    if (m_options.isEllipsoid && !putEllipsoid(values))
        return {{}, "No distance on the ellipsoid: nearly opposite points", question.target};
    return {};
}

void DistanceTask::putLongPath(const LocatorPath& path, bool isAzimuthNone, Values& values) const {
    const LongPath back = longPath(path.circle);
    setNumber(values[longDistanceKm], shownKilometres(back.kilometres));
    values[longAzimuth].clear();
    if (!isAzimuthNone)
        setNumber(values[longAzimuth], shownAzimuth(back.azimuth));
}

/// Between the positions as they are written, so that anybody can work it out from them.
bool DistanceTask::putEllipsoid(Values& values) const {
    std::string& value = values[m_ellipsoidColumn];
    value.clear();
    const VincentyDistance distance =
        distVincenty(Position{numberIn(values[homeLatitude]), numberIn(values[homeLongitude])},
                     Position{numberIn(values[targetLatitude]), numberIn(values[targetLongitude])});
    if (distance.iterationLimitReached)
        return false;
    const double metres = std::round(distance.metres);
    appendPlainText(value, std::floor(metres / 1000));
    value += '.';
    const auto decimals = static_cast<int>(std::fmod(metres, 1000));
    for (const int unit : {100, 10, 1})
        value += static_cast<char>('0' + decimals / unit % 10);
    return true;
}

void DistanceTask::putFields(const Question& question, const Values& values,
                             ContactFields& fields) {
    const bool isLongWay = m_options.isLongPath && question.isLongWay;
    fields.emplace_back("DISTANCE", values[isLongWay ? longDistanceKm : distanceKm]);
    fields.emplace_back("APP_ORBISGRID_AZIMUTH", values[isLongWay ? longAzimuth : azimuth]);
    if (m_options.isEllipsoid)
        fields.emplace_back("APP_ORBISGRID_DISTANCE_WGS84", values[m_ellipsoidColumn]);
}

std::vector<std::string_view> DistanceTask::targetColumns() const {
    return {"gridsquare", "target", "locator"};
}

} // namespace orbisgrid
