#include "ui/edge.h"

#include <QPainter>
#include <QPen>

#include <algorithm>
#include <cmath>

namespace orbisgrid {

void drawEdge(QPainter& painter, const QRect& rect, const QColor& color) {
    const double scale = painter.deviceTransform().m11();
    QPen pen(color, std::max(1.0, std::floor(scale)));
    pen.setCosmetic(true);
    pen.setJoinStyle(Qt::MiterJoin);
    painter.save();
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    // Along the middle of the rectangle's outermost points: a pixel there is inside at any scale.
    painter.drawRect(QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5));
    painter.restore();
}

} // namespace orbisgrid
