#include "core/conversion.h"

#include "core/maidenhead.h"
#include "core/number_text.h"
#include "core/runtime_error.h"

#include <cmath>

namespace orbisgrid {

Text withDecimalPoint(TextView boxText) {
    return replaced(boxText, u',', u'.');
}

std::optional<WholeDms> WorldDMS(TextView boxText) {
    const double value = leadingNumber(boxText);
    if (!std::isfinite(value))
        return std::nullopt;
    const double v = std::fabs(value);
    const double degrees = std::floor(v);
    const double m = (v - degrees) * 60;
    const double s = (m - std::floor(m)) * 60;
    return WholeDms{degrees, std::floor(m), wholeMaskValue(s), value < 0};
}

DecimalCoordinatesResult DecimalCoordinates(TextView decLong, TextView decLat) {
    double longitude = leadingNumber(withDecimalPoint(trimmed(decLong)));
    double latitude = leadingNumber(withDecimalPoint(trimmed(decLat)));
    if (!std::isfinite(longitude) || !std::isfinite(latitude))
        return {DecimalCoordinatesOutcome::unreadable, {}};
    try {
        return {DecimalCoordinatesOutcome::converted, World2Grid(longitude, latitude)};
    } catch (const RuntimeError&) {
        return {DecimalCoordinatesOutcome::outOfGrid, {}};
    }
}

} // namespace orbisgrid
