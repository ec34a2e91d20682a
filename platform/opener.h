#pragma once

#include <QString>

namespace orbisgrid {

/// Opens an address (a web page, a mail link) with the desktop's program for it.
///
/// The address reaches the desktop byte by byte as it stands, in UTF-8: no escape is changed and
/// nothing is added. Whether it could be opened is not looked at.
void openAddress(const QString& address);

} // namespace orbisgrid
