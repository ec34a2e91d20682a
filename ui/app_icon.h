#pragma once

#include <QIcon>

namespace orbisgrid {

/// The program's own icon: the picture of packaging/icons/orbisgrid.svg, painted when it is asked
/// for. No file is read for it, as each start would wait for Qt's image readers. The same on every
/// palette: it stands among the icons of other programs.
QIcon appIcon();

} // namespace orbisgrid
