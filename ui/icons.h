#pragma once

#include <QIcon>

namespace orbisgrid {

/// The pictures of the buttons without a caption. Drawn when needed, in the palette's colours and
/// at any size: no file or theme is read for them.
enum class Glyph { convert, copy, copyAll, map, pathMap, removeItem, eraseList, refresh };

QIcon glyphIcon(Glyph glyph);

} // namespace orbisgrid
