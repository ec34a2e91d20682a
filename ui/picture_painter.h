#pragma once

#include "map/picture.h"
#include "map/role_style.h"

#include <QFont>
#include <QImage>

class QPainter;

namespace orbisgrid {

/// How a picture is put on paper or on a screen.
struct PictureLook {
    const RoleStyles& styles;
    QFont font;          ///< its family; the labels have their own size
    double scale = 1;    ///< of the painter's units to a picture unit
    QPointF corner = {}; ///< the picture's upper left one, in the painter's units
    bool isForScreen = false;
};

/// Paints the shapes of a picture in their order. Lines thinner than a unit of the painter's are
/// painted a unit wide and as much fainter: they look the same and take a third of the time.
///
/// For a screen, areas have unsmoothed edges below their smooth outlines, and letters get their
/// light seam by being painted five times: what a window shows is there in a fifth of the time.
void paintPicture(QPainter& painter, const Picture& picture, const PictureLook& look);

/// A picture of that many pixels each way on white; the look's scale is that of the size.
QImage paintedImage(const Picture& picture, int pixels, PictureLook look);

} // namespace orbisgrid
