#pragma once

#include "core/text.h"
#include "geodesy/great_circle.h"

#include <optional>

namespace orbisgrid {

/// A path in one line, with the distance and the azimuth of the main window: "JO20AW to FN42AA:
/// 5637 km, 3520 miles, 291°; long path 34368 km, 111°". A short locator is completed. Equal
/// locators have no azimuth and no other way round: "JO20AW to JO20AW: 0 km, 0 miles". Result:
/// nothing where one of them fails its check.
[[nodiscard]] std::optional<Text> pathCaption(LocatorPair locators);

/// The locator of 6 characters of a place within the world. The meridian of 180 degrees east is
/// that of 180 degrees west, which has a field.
[[nodiscard]] Text placeLocator(Position place);

/// What a place is, seen from Home: its locator of 6 characters, distance and azimuth as the main
/// window would show them: "FN42AA: 5637 km, 3520 miles, 291°". At Home itself there is no azimuth.
/// Both are within the world: latitude -90 to 90, longitude -180 to 180.
[[nodiscard]] Text placeCaption(Position home, Position place);

} // namespace orbisgrid
