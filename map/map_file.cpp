#include "map/map_file.h"

#include "core/number_text.h"
#include "geodesy/locator_check.h"
#include "map/caption.h"
#include "map/path_map.h"
#include "map/svg.h"

#include <cmath>

namespace orbisgrid {

namespace {

/// "Path from JO20AW to FN42AA"; "Map around JO20AW".
SvgWords wordsOf(const PathMapOptions& map, const MapFileOptions& options) {
    const Text& home = *map.home;
    SvgWords words;
    words.title = map.targets.size() == 1 ? u"Path from " + home + u" to " + map.targets[0].text
                                          : u"Map around " + home;
    words.description = u"Azimuthal equidistant map around " + home + u", north up, " +
                        plainText(std::round(MapFrame(map.view).kilometres())) + u" km to its rim.";
    if (map.targets.size() == 1)
        words.description.append(u" ")
            .append(*pathCaption({home, map.targets[0].text}))
            .append(u".");
    else if (!map.targets.empty())
        words.description +=
            u" Targets: " + plainText(static_cast<double>(map.targets.size())) + u".";
    if (options.moment)
        words.description += u" Day and night at " + momentNote(*options.moment) + u".";
    if (!options.outlines)
        words.description += u" Without outlines.";
    return words;
}

} // namespace

std::optional<std::string> mapFile(const MapFileOptions& options) {
    const auto home = checkedHome(options.home);
    if (!home)
        return std::nullopt;
    PathMapOptions map;
    map.view.centre = pointOf(*home);
    map.view.radiusKilometres = options.radiusKilometres;
    map.home = upperCase(*home);
    for (const Text& locator : options.targets) {
        if (const auto target = checkedTarget(locator))
            map.targets.push_back({pointOf(*target), upperCase(*target)});
    }
    map.drawsPaths = options.drawsPaths;
    map.moment = options.moment;
    map.outlines = options.outlines;
    return svgText(pathMap(map), wordsOf(map, options));
}

} // namespace orbisgrid
