#include "map/sun.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <memory>
#include <numbers>

namespace orbisgrid {

namespace {

constexpr double radian = std::numbers::pi / 180; // of a degree
constexpr std::int64_t secondsOfDay = 86400;
constexpr std::int64_t earliest = -62135596800; ///< 0001-01-01T00:00:00Z
constexpr std::int64_t latest = 253402300799;   ///< 9999-12-31T23:59:59Z
constexpr std::string_view pattern = "0000-00-00T00:00:00Z";

bool hasPattern(std::string_view text) {
    return std::equal(text.begin(), text.end(), pattern.begin(), pattern.end(),
                      [](char given, char wanted) {
                          const bool isDigit = given >= '0' && given <= '9';
                          return wanted == '0' ? isDigit : given == wanted;
                      });
}

/// A field of digits: where it begins, and its length.
struct Field {
    std::size_t start, length;
};

int numberAt(std::string_view text, Field field) {
    const std::string_view digits = text.substr(field.start, field.length);
    int number{};
    std::from_chars(std::to_address(digits.begin()), std::to_address(digits.end()), number);
    return number;
}

void writeNumber(std::string& text, Field field, int number) {
    for (std::size_t i = field.start + field.length; i > field.start; --i) {
        text[i - 1] = static_cast<char>('0' + number % 10);
        number /= 10;
    }
}

constexpr Field yearField{0, 4}, monthField{5, 2}, dayField{8, 2};
constexpr Field hourField{11, 2}, minuteField{14, 2}, secondField{17, 2};

double sine(double degrees) {
    return std::sin(degrees * radian);
}

double cosine(double degrees) {
    return std::cos(degrees * radian);
}

/// Degrees, -180 up to 180.
double turned(double degrees) {
    return degrees - 360 * std::floor((degrees + 180) / 360);
}

/// Where the sun stands in the sky: degrees.
struct ApparentSun {
    double rightAscension, declination;
    double equationOfEquinoxes; ///< what the nutation adds to the sidereal time
};

/// `T` counts centuries of 36525 days from the noon that begins 2000 January 1.
ApparentSun apparentSun(double T) {
    const double meanLongitude = 280.46646 + T * (36000.76983 + T * 0.0003032);
    const double anomaly = 357.52911 + T * (35999.05029 - T * 0.0001537);
    const double centre = (1.914602 - T * (0.004817 + T * 0.000014)) * sine(anomaly) +
                          (0.019993 - T * 0.000101) * sine(2 * anomaly) +
                          0.000289 * sine(3 * anomaly);
    const double node = 125.04 - 1934.136 * T; // of the moon
    const double nutation = -0.00478 * sine(node);
    const double longitude = meanLongitude + centre - 0.00569 + nutation;
    const double obliquity = 23.4392911 - T * 0.0130042 + 0.00256 * cosine(node);
    return {std::atan2(cosine(obliquity) * sine(longitude), cosine(longitude)) / radian,
            std::asin(sine(obliquity) * sine(longitude)) / radian, nutation * cosine(obliquity)};
}

} // namespace

std::optional<Moment> parsedMoment(std::string_view text) {
    if (!hasPattern(text))
        return std::nullopt;
    const int year = numberAt(text, yearField);
    const std::chrono::year_month_day date{
        std::chrono::year(year),
        std::chrono::month(static_cast<unsigned>(numberAt(text, monthField))),
        std::chrono::day(static_cast<unsigned>(numberAt(text, dayField)))};
    const int hour = numberAt(text, hourField), minute = numberAt(text, minuteField);
    const int second = numberAt(text, secondField);
    if (year == 0 || !date.ok() || hour > 23 || minute > 59 || second > 59)
        return std::nullopt;
    const std::int64_t days = std::chrono::sys_days(date).time_since_epoch().count();
    return Moment{days * secondsOfDay + std::int64_t{hour} * 3600 + std::int64_t{minute} * 60 +
                  second};
}

std::string momentText(Moment moment) {
    const std::int64_t seconds = std::clamp(moment.seconds, earliest, latest);
    const auto days = std::chrono::floor<std::chrono::days>(std::chrono::seconds(seconds));
    const std::chrono::year_month_day date{std::chrono::sys_days(days)};
    const auto time = static_cast<int>(seconds - days.count() * secondsOfDay);
    std::string text(pattern);
    writeNumber(text, yearField, static_cast<int>(date.year()));
    writeNumber(text, monthField, static_cast<int>(static_cast<unsigned>(date.month())));
    writeNumber(text, dayField, static_cast<int>(static_cast<unsigned>(date.day())));
    writeNumber(text, hourField, time / 3600);
    writeNumber(text, minuteField, time / 60 % 60);
    writeNumber(text, secondField, time % 60);
    return text;
}

Text momentNote(Moment moment) {
    const std::string text = momentText(moment);
    return fromUtf8(text.substr(0, 10) + " " + text.substr(hourField.start, 5) + " UTC");
}

Position subsolarPoint(Moment moment) {
    constexpr std::int64_t noonOf2000 = 946728000;
    // Within the calendar, so that no sum overflows.
    const std::int64_t seconds = std::clamp(moment.seconds, earliest, latest) - noonOf2000;
    const double days = static_cast<double>(seconds) / static_cast<double>(secondsOfDay);
    const double T = days / 36525;
    const ApparentSun sun = apparentSun(T);
    const double siderealTime = 280.46061837 + 360.98564736629 * days + T * T * 0.000387933;
    return {sun.declination, turned(sun.rightAscension - siderealTime - sun.equationOfEquinoxes)};
}

} // namespace orbisgrid
