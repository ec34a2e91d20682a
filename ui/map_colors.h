#pragma once

#include "map/role_style.h"

class QPalette;

namespace orbisgrid {

/// The look of a map in a window with that palette: print's colours and a tinted sea on a light
/// one, light lines on a dark one, and on a black one (high contrast) the palette's own two
/// colours, of which the one of the paths is made lighter where it would not be seen.
RoleStyles screenStyles(const QPalette& palette);

} // namespace orbisgrid
