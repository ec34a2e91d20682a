#pragma once

namespace orbisgrid {

/// From now on a screen reader hears of a PathMapView where its cross is, as its description and
/// its value: of those whose accessible interface nobody has asked for yet. A second call changes
/// nothing.
void makePathMapsSpeak();

} // namespace orbisgrid
