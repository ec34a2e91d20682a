#pragma once

#include "map/picture.h"
#include "map/svg.h"

#include <QByteArray>
#include <QImage>

#include <optional>

namespace orbisgrid {

/// The kinds of file that a picture is saved as.
enum class PictureKind { svg, png, pdf };

/// By the end of a file's name, whatever its case; nothing where it is of none of them.
std::optional<PictureKind> pictureKindOf(const QString& fileName);

/// A picture in the colours of print: 2000 x 2000 pixels.
QImage printedImage(const Picture& picture);

/// The bytes of a picture's file, in the colours of print. A PDF has one page of 200 x 200 mm.
/// Empty where it cannot be made, for want of memory for instance.
QByteArray pictureFile(const Picture& picture, const SvgWords& words, PictureKind kind);

} // namespace orbisgrid
