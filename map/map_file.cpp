#include "map/map_file.h"

#include "geodesy/locator_check.h"
#include "map/caption.h"
#include "map/map_words.h"
#include "map/svg.h"

namespace orbisgrid {

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
    const Text caption =
        map.targets.size() == 1 ? *pathCaption({*map.home, map.targets[0].text}) : Text();
    return svgText(pathMap(map), mapWords(map, caption));
}

} // namespace orbisgrid
