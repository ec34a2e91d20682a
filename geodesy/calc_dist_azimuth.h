#pragma once

#include "core/text.h"

namespace orbisgrid {

/// The texts that the main window's panels share: what the last distance or decode left.
///
/// `LonText` and `LatText` mean three things in turn. CalcDistAzimuth leaves the Target in the
/// signed print form (a blank or "-" in front), its longitude positive towards the WEST:
/// "-4.041667". The locator panel leaves its position in the same form, positive towards the east,
/// and then the centre of its subsquare with a hemisphere letter: "4.041667E". Each reader runs
/// directly behind its writer; only a locator that is none leaves what an earlier one wrote.
struct FormTexts {
    Text DistText; ///< whole kilometres, signed print form, or "-1" where a locator was refused
    Text LonText;
    Text LatText;
    Text AzimuthText; ///< whole degrees, signed print form, cut and not rounded: " 291"
};

/// The texts of the distance and azimuth from `HomeLoc` to `TargetLoc`: see pathBetween. On a
/// locator that fails its check `texts.DistText` becomes "-1" and the other texts stay.
void CalcDistAzimuth(TextView HomeLoc, TextView TargetLoc, FormTexts& texts);

} // namespace orbisgrid
