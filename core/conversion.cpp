#include "core/conversion.h"

#include "core/angles.h"
#include "core/maidenhead.h"
#include "core/number_text.h"
#include "core/runtime_error.h"

#include <cmath>

namespace orbisgrid {

Text withDecimalPoint(TextView boxText) {
    return replaced(boxText, {u',', u'.'});
}

std::optional<WholeDms> WorldDMS(TextView boxText) {
    const double value = leadingNumber(boxText);
    if (!std::isfinite(value))
        return std::nullopt;
    const Dms dms = splitAngle<double>(std::fabs(value));
    return WholeDms{dms.degrees, dms.minutes, wholeMaskValue(dms.seconds), value < 0};
}

DecimalCoordinatesResult DecimalCoordinates(TextView decLat, TextView decLong) {
    const Position position{leadingNumber(withDecimalPoint(trimmed(decLat))),
                            leadingNumber(withDecimalPoint(trimmed(decLong)))};
    if (!std::isfinite(position.latitude) || !std::isfinite(position.longitude))
        return {DecimalCoordinatesOutcome::unreadable, {}};
    try {
        return {DecimalCoordinatesOutcome::converted, locatorOf(position)};
    } catch (const RuntimeError&) {
        return {DecimalCoordinatesOutcome::outOfGrid, {}};
    }
}

} // namespace orbisgrid
