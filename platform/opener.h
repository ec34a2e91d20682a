#pragma once

#include <string>

namespace orbisgrid {

/// Opens an address (a web page, a mail link) with the desktop's program for it.
///
/// The address, in UTF-8, reaches the desktop byte by byte as it stands: no escape is changed and
/// nothing is added. Whether it could be opened is not looked at.
void openAddress(const std::string& address);

} // namespace orbisgrid
