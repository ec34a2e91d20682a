#include "map/caption.h"

#include "core/maidenhead.h"
#include "core/number_text.h"
#include "geodesy/locator_check.h"

namespace orbisgrid {

namespace {

/// "5637 km, 3520 miles"
Text distanceText(double kilometres) {
    const double shown = shownKilometres(kilometres);
    return plainText(shown) + u" km, " + plainText(shownMiles(shown)) + u" miles";
}

Text azimuthText(double azimuth) {
    return u", " + plainText(shownAzimuth(azimuth)) + u"°";
}

} // namespace

std::optional<Text> pathCaption(LocatorPair locators) {
    const auto path = pathBetween(locators);
    if (!path)
        return std::nullopt;
    const Text home = upperCase(*checkedHome(locators.home));
    const Text target = upperCase(*checkedTarget(locators.target));
    Text caption = home + u" to " + target + u": " + distanceText(path->circle.kilometres);
    if (home == target)
        return caption;
    const LongPath back = longPath(path->circle);
    caption += azimuthText(path->circle.azimuth) + u"; long path " +
               plainText(shownKilometres(back.kilometres)) + u" km" + azimuthText(back.azimuth);
    return caption;
}

Text placeLocator(Position place) {
    if (place.longitude >= 180)
        place.longitude -= 360;
    return locatorOf(place);
}

Text placeCaption(Position home, Position place) {
    const GreatCircle circle = greatCircle(home, place);
    Text caption = placeLocator(place) + u": " + distanceText(circle.kilometres);
    if (home != place)
        caption += azimuthText(circle.azimuth);
    return caption;
}

} // namespace orbisgrid
