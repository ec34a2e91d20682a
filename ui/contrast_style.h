#pragma once

#include <QProxyStyle>

class QPalette;

namespace orbisgrid {

/// Qt's own style draws the edges of boxes, buttons and frames a shade darker than the window. On a
/// black window that is black on black: this draws them in the colour of the text.
class ContrastStyle : public QProxyStyle {
    Q_OBJECT

public:
    /// Whether edges cannot be seen with that palette.
    static bool isNeeded(const QPalette& palette);

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget) const override;
};

/// Takes that style where the application's palette needs it. Once, after the QApplication is made.
void useContrastStyleWhereNeeded();

} // namespace orbisgrid
