#include "map/map_subject.h"

#include "geodesy/locator_check.h"
#include "map/caption.h"

namespace orbisgrid {

std::optional<MapSubject> subjectOfPath(LocatorPair calculated) {
    const auto path = pathBetween(calculated);
    if (!path)
        return std::nullopt;
    const Text target = upperCase(*checkedTarget(calculated.target));
    return MapSubject{.centre = path->home,
                      .home = upperCase(*checkedHome(calculated.home)),
                      .targets = {{path->target, target}},
                      .caption = *pathCaption(calculated)};
}

MapSubject subjectBeforePath(TextView homeBox) {
    const TextView home = trimmed(homeBox);
    if (hasAcceptedLength(home)) {
        if (const auto checked = checkedHome(home))
            return {.centre = pointOf(*checked),
                    .home = upperCase(*checked),
                    .targets = {},
                    .caption = u"Type a Target and press Calculate, or double-click one here."};
    }
    return {.centre = {},
            .home = {},
            .targets = {},
            .caption = u"Type Home and Target and press Calculate."};
}

} // namespace orbisgrid
