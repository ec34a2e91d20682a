#pragma once

class QColor;
class QPainter;
class QRect;

namespace orbisgrid {

/// Draws the edge of a rectangle inside it, as many whole pixels wide as the screen's scale is
/// (one at 1.25 and 1.5). At such scales the style's own edges lie half outside of their widget,
/// which cuts some of them off.
void drawEdge(QPainter& painter, const QRect& rect, const QColor& color);

} // namespace orbisgrid
