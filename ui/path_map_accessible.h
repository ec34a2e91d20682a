#pragma once

namespace orbisgrid {

/// From now on a screen reader hears of a PathMapView where its cross is, as its value. A second
/// call changes nothing.
void makePathMapsSpeak();

} // namespace orbisgrid
