#pragma once

#include "map/outlines.h"

#include <string>

namespace orbisgrid::test {

/// The bytes of orbisgrid-map.dat as it is in the sources; throws std::runtime_error without it.
const std::string& worldOutlineBytes();

/// What they are decoded to.
const Outlines& worldOutlines();

} // namespace orbisgrid::test
