#include "geodesy/calc_dist_azimuth.h"

#include "core/number_text.h"
#include "geodesy/great_circle.h"

namespace orbisgrid {

void CalcDistAzimuth(TextView HomeLoc, TextView TargetLoc, FormTexts& texts) {
    const auto path = pathBetween({HomeLoc, TargetLoc});
    if (!path) {
        texts.DistText = u"-1";
        return;
    }
    texts.DistText = printText(shownKilometres(path->circle.kilometres));
    texts.LonText = printText(static_cast<float>(-path->target.longitude));
    texts.LatText = printText(static_cast<float>(path->target.latitude));
    texts.AzimuthText = printText(shownAzimuth(path->circle.azimuth));
}

} // namespace orbisgrid
