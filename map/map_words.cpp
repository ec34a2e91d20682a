#include "map/map_words.h"

#include "core/number_text.h"

#include <cmath>

namespace orbisgrid {

namespace {

Text titleOf(const PathMapOptions& map) {
    if (!map.home)
        return u"Map of the world";
    if (map.targets.size() == 1)
        return u"Path from " + *map.home + u" to " + map.targets[0].text;
    return u"Map around " + *map.home;
}

} // namespace

SvgWords mapWords(const PathMapOptions& map, TextView caption) {
    const Text middle = map.home.value_or(u"0 north 0 east");
    const double kilometres = std::round(MapFrame(map.view).kilometres());
    SvgWords words{titleOf(map), u"Azimuthal equidistant map around " + middle + u", north up, " +
                                     plainText(kilometres) + u" km to its rim."};
    if (!caption.empty())
        words.description.append(u" ").append(caption).append(u".");
    if (map.targets.size() > 1)
        words.description +=
            u" Targets: " + plainText(static_cast<double>(map.targets.size())) + u".";
    if (map.moment)
        words.description += u" Day and night at " + momentNote(*map.moment) + u".";
    if (!map.outlines)
        words.description += u" Without outlines.";
    return words;
}

} // namespace orbisgrid
