#include "map/picture.h"

namespace orbisgrid {

std::string_view roleName(Role role) {
    switch (role) {
    case Role::sea:
        return "sea";
    case Role::land:
        return "land";
    case Role::border:
        return "border";
    case Role::night:
        return "night";
    case Role::grid:
        return "grid";
    case Role::gridLabel:
        return "grid-label";
    case Role::ring:
        return "ring";
    case Role::ringLabel:
        return "ring-label";
    case Role::tick:
        return "tick";
    case Role::bearingLabel:
        return "bearing-label";
    case Role::cardinal:
        return "cardinal";
    case Role::rim:
        return "rim";
    case Role::shortPath:
        return "short-path";
    case Role::longPath:
        return "long-path";
    case Role::cross:
        return "cross";
    case Role::target:
        return "target";
    case Role::home:
        return "home";
    case Role::targetLabel:
        return "target-label";
    case Role::homeLabel:
        return "home-label";
    case Role::note:
        break;
    }
    return "note";
}

} // namespace orbisgrid
