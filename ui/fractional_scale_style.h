#pragma once

#include "ui/contrast_style.h"

namespace orbisgrid {

/// Qt's own style draws the lower edge of buttons, lists and boxes in their last row of pixels. At
/// a scale such as 1.25, which a desktop or a person can force on the program, that row may lie
/// between two of the screen's and is not drawn: this keeps the edges one row further in.
class FractionalScaleStyle : public ContrastStyle {
    Q_OBJECT

public:
    /// Whether rows are lost at that scale: at all but whole ones.
    static bool isNeeded(qreal scale);

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
};

/// Takes that style in the place of `ContrastStyle` where the screens' scale needs it. Once, after
/// that one is taken.
void useFractionalScaleStyleWhereNeeded();

} // namespace orbisgrid
